// The module file is the sum of the plug-in's objects; this file gives the linker a source of its own.
