#include "engine/graph/value.h"

namespace Velmar::Engine {
namespace {

Value emptyArray(AttributeType type) {
    switch (type) {
        case ATTR_TYPE_INT2:
            return SharedArray<Vec2<int>>();
        case ATTR_TYPE_INT3:
            return SharedArray<Vec3<int>>();
        case ATTR_TYPE_INT4:
            return SharedArray<Vec4<int>>();
        case ATTR_TYPE_FLOAT:
            return SharedArray<float>();
        case ATTR_TYPE_FLOAT2:
            return SharedArray<Vec2<float>>();
        case ATTR_TYPE_FLOAT3:
            return SharedArray<Vec3<float>>();
        case ATTR_TYPE_FLOAT4:
            return SharedArray<Vec4<float>>();
        case ATTR_TYPE_MATRIX:
            return SharedArray<Matrix<float>>();
        case ATTR_TYPE_BYTE:
            return SharedArray<unsigned char>();
        case ATTR_TYPE_STRING:
        case ATTR_TYPE_FILENAME:
            return SharedTexts();
        default:
            return SharedArray<int>();
    }
}

Value defaultMatrix(const ApiAttributeInfo& info) {
    Matrix<float> matrix;
    std::memcpy(matrix.m, info.default_matrix, sizeof matrix.m);
    return matrix;
}

}  // namespace

Value defaultValue(const ApiAttributeInfo& info) {
    if (info.is_array) return emptyArray(info.type);
    const auto& i = info.default_ints;
    const auto& f = info.default_floats;
    switch (info.type) {
        case ATTR_TYPE_BOOL:
            return info.default_bool;
        case ATTR_TYPE_INT2:
            return Vec2<int>{i[0], i[1]};
        case ATTR_TYPE_INT3:
            return Vec3<int>{i[0], i[1], i[2]};
        case ATTR_TYPE_INT4:
            return Vec4<int>{i[0], i[1], i[2], i[3]};
        case ATTR_TYPE_FLOAT:
            return f[0];
        case ATTR_TYPE_FLOAT2:
            return Vec2<float>{f[0], f[1]};
        case ATTR_TYPE_FLOAT3:
            return Vec3<float>{f[0], f[1], f[2]};
        case ATTR_TYPE_FLOAT4:
            return Vec4<float>{f[0], f[1], f[2], f[3]};
        case ATTR_TYPE_STRING:
        case ATTR_TYPE_FILENAME:
            return std::string(info.default_string);
        case ATTR_TYPE_MATRIX:
            return defaultMatrix(info);
        default:
            return int{i[0]};
    }
}

bool same(const SharedTexts& held, const char* const* values, std::size_t count) {
    const std::size_t size = held == nullptr ? 0 : held->texts.size();
    if (size != count) return false;
    for (std::size_t i = 0; i < count; ++i) {
        if (held->texts[i] != (values[i] == nullptr ? "" : values[i])) return false;
    }
    return true;
}

SharedTexts makeTexts(const char* const* values, std::size_t count) {
    auto made = std::make_shared<Texts>();
    made->texts.reserve(count);
    for (std::size_t i = 0; i < count; ++i) made->texts.emplace_back(values[i] == nullptr ? "" : values[i]);
    made->pointers.reserve(count);
    for (const std::string& text : made->texts) made->pointers.push_back(text.c_str());
    return made;
}

}  // namespace Velmar::Engine
