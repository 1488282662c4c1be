// The shared library is the sum of the engine's modules; this file gives the linker a source of its own.
