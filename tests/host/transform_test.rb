# frozen_string_literal: true

require_relative 'host_support'

class TransformTest < Minitest::Test
  include HostSupport
  Transform = VelmarHost::Transform

  TURNED = [0.0, 1.0, 0.0, 0.0, -1.0, 0.0, 0.0, 0.0, 0.0, 0.0, 1.0, 0.0, 5.0, 6.0, 7.0, 1.0].freeze
  STRETCHED = [2.0, 0.0, 0.0, 0.0, 0.0, 3.0, 0.0, 0.0, 0.0, 0.0, -4.0, 0.0, 1.0, 0.0, 0.0, 1.0].freeze

  def test_the_first_of_a_product_acts_first
    point = [1.0, 2.0, 3.0]
    one_by_one = Transform.point(TURNED, Transform.point(STRETCHED, point))
    assert_equal one_by_one, Transform.point(Transform.product(STRETCHED, TURNED), point)
    refute_equal one_by_one, Transform.point(Transform.product(TURNED, STRETCHED), point)
  end

  def test_the_translation_stands_in_the_last_row
    assert_equal [5.0, 6.0, 7.0], Transform.point(TURNED, [0.0, 0.0, 0.0])
    assert_equal [5.0, 7.0, 7.0], Transform.point(TURNED, [1.0, 0.0, 0.0])
  end

  def test_an_inverse_undoes_turns_stretches_and_moves
    both = Transform.product(STRETCHED, TURNED)
    assert_near Transform::IDENTITY, Transform.product(both, Transform.inverse(both)), 1e-12
  end

  def test_what_flattens_space_has_no_inverse
    assert_nil Transform.inverse([1.0, 0, 0, 0, 0, 1.0, 0, 0, 0, 0, 0.0, 0, 0, 0, 0, 1.0])
  end

  def test_a_mirror_is_told_from_a_turn
    assert Transform.mirrored?(STRETCHED)
    refute Transform.mirrored?(TURNED)
  end

  def test_no_direction_for_a_vector_without_length
    assert_nil Transform.unit([0.0, 0.0, 0.0])
    assert_near [0.6, 0.0, 0.8], Transform.unit([3.0, 0.0, 4.0]), 1e-12
  end
end
