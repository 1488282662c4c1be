// Entry of the host's native half, which the interpreter calls when it loads the file.
#include "native.h"

extern "C" __attribute__((visibility("default"))) void Init_velmarhost() {
    const VALUE host = rb_define_module("VelmarHost");
    const VALUE native = rb_define_module_under(host, "Native");
    Velmar::Host::defineModelFunctions(native);
    Velmar::Host::defineEngineFunctions(native);
}
