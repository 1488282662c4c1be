#include "geometry.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <set>
#include <unordered_map>

namespace Velmar::Host {
namespace {

constexpr float inches_per_metre = 39.3701F;
constexpr float places_per_metre = 1e6F;  // the mirror welds positions that agree to a micrometre
constexpr float farthest_metres = 1e12F;  // beyond, and for nan, all places are one
constexpr float same_direction_cosine = 0.99999F;
constexpr int directions_looked_at = 96;

using Place = std::array<std::int64_t, 3>;

struct PlaceHash {
    std::size_t operator()(const Place& place) const {
        std::uint64_t hash = 1469598103934665603U;
        for (const std::int64_t coordinate : place)
            hash = (hash ^ static_cast<std::uint64_t>(coordinate)) * 1099511628211U;
        return static_cast<std::size_t>(hash ^ (hash >> 29U));
    }
};

Place placeOf(const float* point) {
    Place place{};
    for (int i = 0; i < 3; ++i) {
        const float metres = point[i] / inches_per_metre;
        place[i] = std::abs(metres) < farthest_metres ? std::llrint(static_cast<double>(metres) * places_per_metre) : 0;
    }
    return place;
}

bool sameDirection(const float* a, const float* b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2] > same_direction_cosine;
}

/// One normal met at a place, and the next one met there.
struct Normal {
    const float* direction;
    std::size_t next;
};

constexpr std::size_t none = SIZE_MAX;

/// The number of `normal` in the list that starts at `first`, where it is appended when it is new.
std::int32_t numberAmong(std::vector<Normal>& normals, std::size_t first, const float* normal) {
    std::int32_t number = 0;
    for (std::size_t at = first;; at = normals[at].next, ++number) {
        if (sameDirection(normals[at].direction, normal)) return number;
        if (normals[at].next == none) {
            normals[at].next = normals.size();
            normals.push_back({normal, none});
            return number + 1;
        }
    }
}

/// Directions spread evenly over the sphere (Saff and Kuijlaars 1997, generalised spiral).
std::array<double, 3> spiralDirection(int index) {
    const double z = 1.0 - (2.0 * index + 1.0) / directions_looked_at;
    const double radius = std::sqrt(1.0 - z * z);
    const double angle = index * std::numbers::pi * (3.0 - std::sqrt(5.0));
    return {radius * std::cos(angle), radius * std::sin(angle), z};
}

std::size_t farthest(const std::vector<double>& points, const std::array<double, 3>& direction) {
    std::size_t best = 0;
    double best_distance = -HUGE_VAL;
    for (std::size_t i = 0; i + 2 < points.size(); i += 3) {
        const double distance = points[i] * direction[0] + points[i + 1] * direction[1] + points[i + 2] * direction[2];
        if (distance > best_distance) {
            best_distance = distance;
            best = i;
        }
    }
    return best;
}

}  // namespace

std::vector<std::int32_t> surfaceNumbers(const std::vector<float>& points, const std::vector<float>& normals) {
    const std::size_t count = std::min(points.size(), normals.size()) / 3;
    std::vector<std::int32_t> numbers(count, 0);
    std::unordered_map<Place, std::size_t, PlaceHash> first_at;
    first_at.reserve(count);
    std::vector<Normal> met;
    met.reserve(count);
    for (std::size_t p = 0; p < count; ++p) {
        const float* normal = &normals[3 * p];
        const auto [entry, is_new] = first_at.try_emplace(placeOf(&points[3 * p]), met.size());
        if (is_new)
            met.push_back({normal, none});
        else
            numbers[p] = numberAmong(met, entry->second, normal);
    }
    return numbers;
}

std::vector<double> outermostPoints(const std::vector<double>& points) {
    std::set<std::size_t> chosen;
    if (points.size() >= 3)
        for (int d = 0; d < directions_looked_at; ++d) chosen.insert(farthest(points, spiralDirection(d)));
    std::vector<double> result;
    result.reserve(3 * chosen.size());
    for (const std::size_t at : chosen) result.insert(result.end(), {points[at], points[at + 1], points[at + 2]});
    return result;
}

}  // namespace Velmar::Host
