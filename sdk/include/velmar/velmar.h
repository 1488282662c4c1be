// The render SDK, whole. Sources include the headers that they use; this one is for a first look.
#pragma once

#include <velmar/arrays.h>
#include <velmar/change.h>
#include <velmar/graph.h>
#include <velmar/info.h>
#include <velmar/item.h>
#include <velmar/node.h>
#include <velmar/project.h>
#include <velmar/render.h>
#include <velmar/window.h>
