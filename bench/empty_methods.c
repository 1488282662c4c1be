/* Native methods that do nothing, with the names and argument counts of the geometry stream: what the interpreter's own
   way into native code and back costs. */
#include <ruby.h>

static VALUE one(VALUE self, VALUE a) {
    (void)self, (void)a;
    return Qtrue;
}

static VALUE three(VALUE self, VALUE a, VALUE b, VALUE c) {
    (void)self, (void)a, (void)b, (void)c;
    return Qtrue;
}

static VALUE four(VALUE self, VALUE a, VALUE b, VALUE c, VALUE d) {
    (void)self, (void)a, (void)b, (void)c, (void)d;
    return Qtrue;
}

static VALUE two(VALUE self, VALUE a, VALUE b) {
    (void)self, (void)a, (void)b;
    return Qtrue;
}

__attribute__((visibility("default"))) void Init_velmar_bench(void) {
    VALUE klass = rb_define_class("EmptyStream", rb_cObject);
    rb_define_singleton_method(klass, "set_geometry_stream", two, 2);
    rb_define_singleton_method(klass, "warmup_stream", two, 2);
    rb_define_singleton_method(klass, "add_vertex", three, 3);
    rb_define_singleton_method(klass, "add_normal", four, 4);
    rb_define_singleton_method(klass, "add_uvw", three, 3);
    rb_define_singleton_method(klass, "add_vertex_index", one, 1);
    rb_define_singleton_method(klass, "add_normal_index", one, 1);
    rb_define_singleton_method(klass, "add_uvw_index", one, 1);
    rb_define_singleton_method(klass, "add_face", four, 4);
    rb_define_singleton_method(klass, "evaluate_stream", one, 1);
}
