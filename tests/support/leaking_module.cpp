// A Ruby module that loses memory on purpose: what finds leaks is tried on it.
#include <string>

#include "plugin/ruby/handler.h"

namespace {

/// Allocates 100 bytes and forgets where.
VALUE Lose(VALUE) {
    auto* const lost = new char[100];
    asm volatile("" : : "r"(lost) : "memory");
    return Qnil;
}

void Start() {
    Velmar::Ruby::define<&Lose>(Velmar::Ruby::open_class("VelmarLeaking"), "lose");
}

}  // namespace

extern "C" __attribute__((visibility("default"))) void Init_velmar_leaking() {
    Velmar::Ruby::run_entry<&Start>();
}
