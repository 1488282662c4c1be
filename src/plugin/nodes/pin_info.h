// Pins described as JSON, for whoever edits their values: kind, limits, choices and what may be plugged in.
#pragma once

#include <json/forwards.h>

namespace Velmar {

class ApiNode;

/// Describes the pin at `index` of `node` as an object: "name", by which the pin is found again, and with `full`
///   "label"; "node_ids", the node types that the SDK allows on such a pin, null for none;
///   "type": "bool", "float", "int", "transform", "texture" or "enum", absent for other kinds of pins;
///   "dim" for the first four; for numbers "min", "max", "sld_min" and "sld_max" (limits of the field and of its
///   slider), each an object with a number for "x", "y", "z", as many as "dim" says;
///   for an enum "values": "label" and "value" of each choice, null for none.
/// A null node answers null.
Json::Value GetPinInfo(ApiNode* node, unsigned int index, bool full);

}  // namespace Velmar
