# frozen_string_literal: true

require_relative "../../support/velmar_test_helper"
require_relative "../../support/surface_table"

class MethodTableTest < VelmarTest::PluginTest
  include SurfaceTable

  def test_the_surface_has_74_methods
    assert_equal 74, METHODS.sum { |_, methods| methods.size }
  end

  def test_each_class_has_exactly_its_methods
    METHODS.each do |klass, methods|
      assert_equal methods.keys.sort, Object.const_get(klass).singleton_methods(false).map(&:to_s).sort, klass
    end
  end

  def test_classes_stand_under_object_and_have_no_methods_of_instances
    METHODS.each_key do |klass|
      assert_equal Object, Object.const_get(klass).superclass, klass
      assert_empty Object.const_get(klass).instance_methods(false), klass
    end
  end

  def test_each_method_has_its_argument_count
    each_method do |klass, name, count|
      assert_equal count, Object.const_get(klass).method(name).arity, "#{klass}.#{name}"
    end
  end

  def test_any_other_argument_count_is_an_argument_error
    each_method do |klass, name, count|
      [count - 1, count + 1].reject(&:negative?).each do |wrong|
        error = assert_raises(ArgumentError, "#{klass}.#{name}") { SurfaceTable.call(klass, name, *Array.new(wrong, 0)) }
        assert_equal "wrong number of arguments (given #{wrong}, expected #{count})", error.message
      end
    end
  end

  def test_a_wrong_type_is_a_type_error_in_the_caller
    WRONG_TYPES.each do |call|
      error = assert_raises(TypeError, call.inspect) { SurfaceTable.call(*call) }
      assert_includes error.backtrace.join("\n"), __FILE__
    end
  end

  def test_a_number_that_does_not_fit_is_a_range_error
    WRONG_RANGES.each { |call| assert_raises(RangeError, call.inspect) { SurfaceTable.call(*call) } }
  end

  def test_a_refused_call_changes_nothing
    WRONG_TYPES.each { |call| assert_raises(TypeError) { SurfaceTable.call(*call) } }
    refute ExtEntity.present?(FREE)
  end

  def test_every_built_method_with_arguments_is_tried_with_wrong_ones
    tried = (WRONG_TYPES + WRONG_RANGES).map { |klass, name,| [klass, name] }.uniq
    # These take any value.
    tried += [%w[VelmarExt block_updates], %w[VelmarExt export_scene]]
    each_method do |klass, name, count|
      next if count.zero? || NOT_BUILT[klass]&.include?(name)

      assert_includes tried, [klass, name]
    end
  end

  def test_a_command_to_be_built_raises_not_implemented_error_and_names_itself
    NOT_BUILT.each do |klass, names|
      names.each do |name|
        error = assert_raises(NotImplementedError, name) do
          SurfaceTable.call(klass, name, *Array.new(METHODS[klass][name], ""))
        end
        assert_includes error.message, name
      end
    end
  end
end
