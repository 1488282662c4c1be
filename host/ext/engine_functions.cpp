// The engine's host interface for the Ruby half.
#include <ruby/thread.h>

#include <string>

#include "engine/host/engine_host.h"
#include "native.h"

namespace Velmar::Host {
namespace {

using Engine::EngineHost;
using Engine::RenderProgress;
using Engine::RenderStatistics;
using Engine::WaitResult;

VALUE symbol(const char* name) {
    return ID2SYM(rb_intern(name));
}

void put(VALUE hash, const char* name, VALUE value) {
    rb_hash_aset(hash, symbol(name), value);
}

VALUE progressFunction(VALUE) {
    RenderProgress progress;
    Failure failure;
    if (!attempt(failure, [&] { progress = EngineHost::progress(); })) raise(failure);
    const VALUE hash = rb_hash_new();
    put(hash, "width", INT2NUM(progress.width));
    put(hash, "height", INT2NUM(progress.height));
    put(hash, "samples", INT2NUM(progress.samples));
    put(hash, "max_samples", INT2NUM(progress.max_samples));
    put(hash, "seconds", rb_float_new(progress.seconds));
    put(hash, "running", progress.running ? Qtrue : Qfalse);
    return hash;
}

struct Wait {
    int samples = 0;
    double seconds = 0.0;
    WaitResult result = WaitResult::NothingToRender;
    bool done = false;
    Failure failure;
};

void* waitWithoutInterpreter(void* argument) {
    Wait& wait = *static_cast<Wait*>(argument);
    wait.done = attempt(wait.failure, [&] { wait.result = EngineHost::waitForSamples(wait.samples, wait.seconds); });
    return nullptr;
}

void interruptWait(void*) {
    EngineHost::interrupt();
}

VALUE waitResultValue(WaitResult result) {
    switch (result) {
        case WaitResult::SamplesReached:
            return symbol("samples_reached");
        case WaitResult::TimeLimit:
            return symbol("time_limit");
        case WaitResult::Interrupted:
            return symbol("interrupted");
        case WaitResult::NothingToRender:
            break;
    }
    return symbol("nothing_to_render");
}

VALUE waitProtected(VALUE wait) {
    rb_thread_call_without_gvl(waitWithoutInterpreter, reinterpret_cast<void*>(wait), interruptWait, nullptr);
    return Qnil;
}

WORK VALUE waitFor(int samples, double seconds) {
    Wait wait;
    wait.samples = samples;
    wait.seconds = seconds;
    int tag = 0;
    rb_protect(waitProtected, reinterpret_cast<VALUE>(&wait), &tag);
    if (tag != 0) rb_jump_tag(tag);
    if (!wait.done) raise(wait.failure);
    return waitResultValue(wait.result);
}

/// Other Ruby threads run meanwhile, and a signal ends the wait: its handler runs before this answers.
VALUE waitFunction(VALUE, VALUE samples, VALUE seconds) {
    return waitFor(NUM2INT(samples), NUM2DBL(seconds));
}

VALUE interruptFunction(VALUE) {
    EngineHost::interrupt();
    return Qnil;
}

WORK VALUE savePictureAs(VALUE path) {
    Failure failure;
    bool saved = false;
    const bool tried = attempt(failure, [&] {
        std::string reason;
        saved = EngineHost::savePicture(std::string(RSTRING_PTR(path), RSTRING_LEN(path)), reason);
        if (!saved) failure.because(reason);
    });
    if (!tried) raise(failure);
    RB_GC_GUARD(path);
    return saved ? Qnil : rb_utf8_str_new_cstr(failure.reason);
}

/// Nil when the picture is saved, else the reason as a text.
VALUE savePictureFunction(VALUE, VALUE path) {
    return savePictureAs(textArgument(path));
}

VALUE statisticsFunction(VALUE) {
    RenderStatistics statistics;
    Failure failure;
    if (!attempt(failure, [&] { statistics = EngineHost::statistics(); })) raise(failure);
    const VALUE hash = rb_hash_new();
    put(hash, "meshes", ULL2NUM(statistics.meshes));
    put(hash, "triangles", ULL2NUM(statistics.triangles));
    put(hash, "acceleration_structures", ULL2NUM(statistics.acceleration_structures));
    put(hash, "instance_lists", ULL2NUM(statistics.instance_lists));
    put(hash, "placements", ULL2NUM(statistics.placements));
    put(hash, "meshes_built", ULL2NUM(statistics.meshes_built));
    put(hash, "meshes_kept", ULL2NUM(statistics.meshes_kept));
    put(hash, "acceleration_structures_built", ULL2NUM(statistics.acceleration_structures_built));
    put(hash, "instance_lists_built", ULL2NUM(statistics.instance_lists_built));
    put(hash, "instance_lists_kept", ULL2NUM(statistics.instance_lists_kept));
    put(hash, "top_levels_built", ULL2NUM(statistics.top_levels_built));
    put(hash, "cameras_built", ULL2NUM(statistics.cameras_built));
    put(hash, "film_restarts", ULL2NUM(statistics.film_restarts));
    put(hash, "updates", ULL2NUM(statistics.updates));
    return hash;
}

VALUE resetStatisticsFunction(VALUE) {
    Failure failure;
    if (!attempt(failure, [] { EngineHost::resetStatistics(); })) raise(failure);
    return Qnil;
}

WORK VALUE setMaxSamples(int samples) {
    Failure failure;
    if (!attempt(failure, [&] { EngineHost::setMaxSamples(samples); })) raise(failure);
    return Qnil;
}

VALUE setMaxSamplesFunction(VALUE, VALUE samples) {
    return setMaxSamples(NUM2INT(samples));
}

VALUE pumpEventsFunction(VALUE) {
    Failure failure;
    if (!attempt(failure, [] { EngineHost::pumpEvents(); })) raise(failure);
    return Qnil;
}

}  // namespace

void defineEngineFunctions(VALUE native) {
    rb_define_singleton_method(native, "progress", RUBY_METHOD_FUNC(progressFunction), 0);
    rb_define_singleton_method(native, "wait", RUBY_METHOD_FUNC(waitFunction), 2);
    rb_define_singleton_method(native, "interrupt", RUBY_METHOD_FUNC(interruptFunction), 0);
    rb_define_singleton_method(native, "save_picture", RUBY_METHOD_FUNC(savePictureFunction), 1);
    rb_define_singleton_method(native, "statistics", RUBY_METHOD_FUNC(statisticsFunction), 0);
    rb_define_singleton_method(native, "reset_statistics", RUBY_METHOD_FUNC(resetStatisticsFunction), 0);
    rb_define_singleton_method(native, "max_samples=", RUBY_METHOD_FUNC(setMaxSamplesFunction), 1);
    rb_define_singleton_method(native, "pump_events", RUBY_METHOD_FUNC(pumpEventsFunction), 0);
}

}  // namespace Velmar::Host
