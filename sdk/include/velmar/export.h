// Marks what the render SDK exports. Everything else in the library stays hidden.
#pragma once

#define VELMAR_SDK __attribute__((visibility("default")))
