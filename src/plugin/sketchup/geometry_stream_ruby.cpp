// ExtStream: the bulk of what the script layer has to say comes through here, number by number.
#include "plugin/sketchup/geometry_stream.h"

#include "plugin/ruby/answers.h"
#include "plugin/ruby/arguments.h"
#include "plugin/ruby/handler.h"
#include "plugin/sketchup/geometry_stream_ext.h"
#include "plugin/sketchup/su_manager.h"

namespace Velmar {

namespace {

VALUE SetGeometryStream(VALUE, VALUE definition_id, VALUE mesh_name) {
    const int id = Ruby::to_int(definition_id);
    const std::string name = Ruby::to_cstr(mesh_name);
    if (!SketchupManager::IsOpen()) return Qfalse;
    SketchupManager::SetGeometryStream(id, name);
    return Qtrue;
}

VALUE WarmupStream(VALUE, VALUE point_count, VALUE index_count) {
    const unsigned int points = Ruby::to_uint(point_count);
    const unsigned int indices = Ruby::to_uint(index_count);
    GeometryStream* const stream = SketchupManager::OpenStream();
    if (stream == nullptr) return Qfalse;
    stream->Warmup(points, indices);
    return Qtrue;
}

VALUE AddVertex(VALUE, VALUE x, VALUE y, VALUE z) {
    const float x_inches = Ruby::to_float(x);
    const float y_inches = Ruby::to_float(y);
    const float z_inches = Ruby::to_float(z);
    GeometryStream* const stream = SketchupManager::OpenStream();
    if (stream == nullptr) return Qfalse;
    stream->AddVertex(x_inches, y_inches, z_inches);
    return Qtrue;
}

VALUE AddNormal(VALUE, VALUE x, VALUE y, VALUE z, VALUE surface) {
    const float nx = Ruby::to_float(x);
    const float ny = Ruby::to_float(y);
    const float nz = Ruby::to_float(z);
    const int surface_id = Ruby::to_int(surface);
    GeometryStream* const stream = SketchupManager::OpenStream();
    if (stream == nullptr) return Qfalse;
    stream->AddNormal(nx, ny, nz, surface_id);
    return Qtrue;
}

VALUE AddUvw(VALUE, VALUE u_value, VALUE v_value, VALUE q_value) {
    const float u = Ruby::to_float(u_value);
    const float v = Ruby::to_float(v_value);
    const float q = Ruby::to_float(q_value);
    GeometryStream* const stream = SketchupManager::OpenStream();
    if (stream == nullptr) return Qfalse;
    stream->AddUvw(u, v, q);
    return Qtrue;
}

VALUE AddVertexIndex(VALUE, VALUE number) {
    const unsigned int point_number = Ruby::to_uint(number);
    GeometryStream* const stream = SketchupManager::OpenStream();
    return Ruby::to_value(stream != nullptr && stream->AddVertexIndex(point_number));
}

VALUE AddNormalIndex(VALUE, VALUE number) {
    const unsigned int point_number = Ruby::to_uint(number);
    GeometryStream* const stream = SketchupManager::OpenStream();
    return Ruby::to_value(stream != nullptr && stream->AddNormalIndex(point_number));
}

VALUE AddUvwIndex(VALUE, VALUE number) {
    const int uvw_number = Ruby::to_int(number);
    GeometryStream* const stream = SketchupManager::OpenStream();
    return Ruby::to_value(stream != nullptr && stream->AddUvwIndex(uvw_number));
}

VALUE AddFace(VALUE, VALUE face_id, VALUE material_id, VALUE first, VALUE end) {
    const Face face{Ruby::to_int(face_id), Ruby::to_int(material_id), Ruby::to_int(first), Ruby::to_int(end)};
    GeometryStream* const stream = SketchupManager::OpenStream();
    if (stream == nullptr) return Qfalse;
    stream->AddFace(face);
    return Qtrue;
}

VALUE EvaluateStream(VALUE, VALUE settings) {
    const std::string json = Ruby::to_cstr(settings);
    return Ruby::to_value(SketchupManager::IsOpen() && SketchupManager::EvaluateStream(json));
}

}  // namespace

void GeometryStreamExt::Init() {
    const VALUE klass = Ruby::open_class("ExtStream");
    Ruby::define<&SetGeometryStream>(klass, "set_geometry_stream");
    Ruby::define<&WarmupStream>(klass, "warmup_stream");
    Ruby::define<&AddVertex>(klass, "add_vertex");
    Ruby::define<&AddNormal>(klass, "add_normal");
    Ruby::define<&AddUvw>(klass, "add_uvw");
    Ruby::define<&AddVertexIndex>(klass, "add_vertex_index");
    Ruby::define<&AddNormalIndex>(klass, "add_normal_index");
    Ruby::define<&AddUvwIndex>(klass, "add_uvw_index");
    Ruby::define<&AddFace>(klass, "add_face");
    Ruby::define<&EvaluateStream>(klass, "evaluate_stream");
}

}  // namespace Velmar
