// Model files and long lists of points for the Ruby half. Lists travel as packed strings in the machine's own order:
// floats and 32-bit integers of meshes, doubles elsewhere.
#include <string>
#include <vector>

#include "geometry.h"
#include "imported_scene.h"
#include "native.h"

namespace Velmar::Host {
namespace {

VALUE symbol(const char* name) {
    return ID2SYM(rb_intern(name));
}

void put(VALUE hash, const char* name, VALUE value) {
    rb_hash_aset(hash, symbol(name), value);
}

VALUE textValue(const std::string& text) {
    return rb_utf8_str_new(text.data(), static_cast<long>(text.size()));
}

template <typename T>
VALUE packedValue(const std::vector<T>& list) {
    return rb_str_new(reinterpret_cast<const char*>(list.data()), static_cast<long>(list.size() * sizeof(T)));
}

template <typename T>
std::vector<T> unpacked(VALUE text) {
    std::vector<T> list(static_cast<std::size_t>(RSTRING_LEN(text)) / sizeof(T));
    if (!list.empty()) memcpy(list.data(), RSTRING_PTR(text), list.size() * sizeof(T));
    return list;
}

VALUE materialValue(const ImportedMaterial& material) {
    const VALUE hash = rb_hash_new();
    put(hash, "name", textValue(material.name));
    const VALUE color = rb_ary_new();
    for (const double channel : material.color) rb_ary_push(color, rb_float_new(channel));
    put(hash, "color", color);
    put(hash, "opacity", rb_float_new(material.opacity));
    put(hash, "texture", material.texture.empty() ? Qnil : textValue(material.texture));
    return hash;
}

VALUE meshValue(const ImportedMesh& mesh) {
    const VALUE hash = rb_hash_new();
    put(hash, "name", textValue(mesh.name));
    put(hash, "material", UINT2NUM(mesh.material));
    put(hash, "points", packedValue(mesh.points));
    put(hash, "normals", packedValue(mesh.normals));
    put(hash, "uvs", packedValue(mesh.uvs));
    put(hash, "triangles", packedValue(mesh.triangles));
    return hash;
}

VALUE nodeValue(const ImportedNode& node) {
    const VALUE hash = rb_hash_new();
    put(hash, "name", textValue(node.name));
    const VALUE transform = rb_ary_new();
    for (const double element : node.transform) rb_ary_push(transform, rb_float_new(element));
    put(hash, "transform", transform);
    const VALUE meshes = rb_ary_new();
    for (const std::uint32_t mesh : node.meshes) rb_ary_push(meshes, UINT2NUM(mesh));
    put(hash, "meshes", meshes);
    const VALUE children = rb_ary_new();
    for (const ImportedNode& child : node.children) rb_ary_push(children, nodeValue(child));
    put(hash, "children", children);
    return hash;
}

/// May be left by a jump: it owns nothing.
VALUE sceneValue(VALUE address) {
    const ImportedScene& scene = *reinterpret_cast<const ImportedScene*>(address);
    const VALUE hash = rb_hash_new();
    const VALUE materials = rb_ary_new();
    for (const ImportedMaterial& material : scene.materials) rb_ary_push(materials, materialValue(material));
    put(hash, "materials", materials);
    const VALUE meshes = rb_ary_new();
    for (const ImportedMesh& mesh : scene.meshes) rb_ary_push(meshes, meshValue(mesh));
    put(hash, "meshes", meshes);
    put(hash, "root", nodeValue(scene.root));
    return hash;
}

WORK VALUE readSceneAt(VALUE path) {
    ImportedScene* scene = nullptr;
    Failure failure;
    if (!attempt(failure,
                 [&] { scene = new ImportedScene(readScene(std::string(RSTRING_PTR(path), RSTRING_LEN(path)))); }))
        raise(failure);

    int tag = 0;
    const VALUE result = rb_protect(sceneValue, reinterpret_cast<VALUE>(scene), &tag);
    delete scene;
    if (tag != 0) rb_jump_tag(tag);
    RB_GC_GUARD(path);
    return result;
}

VALUE readSceneFunction(VALUE, VALUE path) {
    return readSceneAt(textArgument(path));
}

/// A list of numbers that a function has made, to be handed to Ruby as a packed string.
template <typename T>
VALUE handOver(std::vector<T>* list) {
    int tag = 0;
    const VALUE result =
        rb_protect([](VALUE address) { return packedValue(*reinterpret_cast<const std::vector<T>*>(address)); },
                   reinterpret_cast<VALUE>(list), &tag);
    delete list;
    if (tag != 0) rb_jump_tag(tag);
    return result;
}

WORK VALUE surfaceNumbersOf(VALUE points, VALUE normals) {
    std::vector<std::int32_t>* numbers = nullptr;
    Failure failure;
    if (!attempt(failure, [&] {
            numbers = new std::vector<std::int32_t>(surfaceNumbers(unpacked<float>(points), unpacked<float>(normals)));
        }))
        raise(failure);
    return handOver(numbers);
}

VALUE surfaceNumbersFunction(VALUE, VALUE points, VALUE normals) {
    Check_Type(points, T_STRING);
    Check_Type(normals, T_STRING);
    return surfaceNumbersOf(points, normals);
}

WORK VALUE outermostPointsOf(VALUE points) {
    std::vector<double>* outermost = nullptr;
    Failure failure;
    if (!attempt(failure, [&] { outermost = new std::vector<double>(outermostPoints(unpacked<double>(points))); }))
        raise(failure);
    return handOver(outermost);
}

VALUE outermostPointsFunction(VALUE, VALUE points) {
    Check_Type(points, T_STRING);
    return outermostPointsOf(points);
}

}  // namespace

void defineModelFunctions(VALUE native) {
    rb_define_singleton_method(native, "read_scene", RUBY_METHOD_FUNC(readSceneFunction), 1);
    rb_define_singleton_method(native, "surface_numbers", RUBY_METHOD_FUNC(surfaceNumbersFunction), 2);
    rb_define_singleton_method(native, "outermost_points", RUBY_METHOD_FUNC(outermostPointsFunction), 1);
}

}  // namespace Velmar::Host
