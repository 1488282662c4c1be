#include "engine/scene/placements.h"

#include "engine/scene/acceleration.h"

namespace Velmar::Engine {

namespace {

// Rays are brought into the mesh's space by the inverse, which must exist in single precision.
bool isUsable(const Affine& a) {
    constexpr float kSmallestVolume = 1e-30f;
    if (!isFinite(a)) return false;
    for (const auto& row : a.m)
        for (float element : row)
            if (std::fabs(element) > kLargestCoordinate) return false;
    return std::fabs(dot(cross(column(a, 0), column(a, 1)), column(a, 2))) > kSmallestVolume;
}

std::vector<Affine> productsOf(const std::vector<SharedArray<Affine>>& lists) {
    std::vector<Affine> products{identity()};
    for (const auto& list : lists) {
        std::vector<Affine> next;
        next.reserve(std::min(products.size() * list->size(), kLargestPlacementList));
        for (const Affine& outer : products)
            for (const Affine& inner : *list)
                if (next.size() < kLargestPlacementList) next.push_back(multiply(outer, inner));
        products = std::move(next);
    }
    return products;
}

}  // namespace

Placements combinePlacements(const std::vector<SharedArray<Affine>>& lists) {
    const bool single = lists.size() == 1 && lists.front()->size() <= kLargestPlacementList;
    const auto all = single ? lists.front() : std::make_shared<const std::vector<Affine>>(productsOf(lists));
    const auto good = static_cast<std::size_t>(std::count_if(all->begin(), all->end(), isUsable));
    if (good == all->size()) return {all, 0};

    std::vector<Affine> usable;
    usable.reserve(good);
    std::copy_if(all->begin(), all->end(), std::back_inserter(usable), isUsable);
    return {std::make_shared<const std::vector<Affine>>(std::move(usable)), all->size() - good};
}

}  // namespace Velmar::Engine
