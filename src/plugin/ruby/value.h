// What the bridge shows to sources that know no interpreter: a Ruby value as a plain word, and the exception that
// stands for a way out of Ruby code.
#pragma once

namespace Velmar::Ruby {

/// The interpreter's own object reference. It is kept alive by standing on the stack of the Ruby thread, and only so:
/// never keep one in memory of our own.
using Value = unsigned long;

/// A Ruby exception, throw or exit on its way through native frames. The handler that Ruby called lets it go on in Ruby
/// as the same exception object, throw or exit. Do not swallow it: a catch (...) in between rethrows.
struct Jump {
    int tag;
};

}  // namespace Velmar::Ruby
