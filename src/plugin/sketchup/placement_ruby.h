// Placements on their way in: Ruby arrays of 16 numbers, translation in inches, as matrices in metres.
#pragma once

#include <vector>

#include "plugin/ruby/arguments.h"
#include "plugin/sketchup/float4x4.h"

namespace Velmar::Ruby {

/// The first 16 numbers of an array. TypeError for anything else than an array and for elements that are no numbers.
Float4x4 ToPlacement(VALUE array);
/// Every element of an array that is itself an array of exactly 16 items; all others are skipped, and so is a value
/// that is no array.
std::vector<Float4x4> ToPlacements(VALUE list);

}  // namespace Velmar::Ruby
