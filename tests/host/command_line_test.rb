# frozen_string_literal: true

require_relative 'host_support'

# What goes wrong is one line and a status, and never a trace.
class CommandLineTest < Minitest::Test
  include HostSupport

  def fails(status, pattern, *arguments, **options)
    out, complaint, process = run_command(*arguments, **options)
    assert_one_line pattern, complaint
    assert_equal status, process.exitstatus, complaint
    assert_equal '', out.lines.grep_v(/\A(Reading|Streaming|Rendering)/).join
  end

  def model
    @model ||= write('model.json', document)
  end

  def test_help_and_version_are_answers
    out, complaint, process = run_command('--help')
    assert_equal ['', 0], [complaint, process.exitstatus]
    %w[--output --size --samples --time --eye --target --fov --quiet --version 1000x600].each { |o| assert_includes out, o }
    assert_equal "velmar #{VelmarHost::VERSION}\n", run_command('--version').first
  end

  def test_the_version_is_that_of_the_project
    project = File.read(File.join(ROOT, 'CMakeLists.txt'))[/project\(velmar VERSION ([\d.]+)/, 1]
    assert_equal project, VelmarHost::VERSION
  end

  def test_no_model
    fails 2, /which model/
  end

  def test_two_models
    fails 2, /one model at a time/, model, 'other.dae', '-o', 'out.png'
  end

  def test_no_output
    fails 2, /where does the picture go/, model
  end

  def test_unknown_options
    fails 2, /invalid option: --colour/, model, '-o', 'out.png', '--colour'
    fails 2, /missing argument: --size/, model, '-o', 'out.png', '--size'
    fails 2, /invalid argument: --samples many/, model, '-o', 'out.png', '--samples', 'many'
  end

  def test_sizes_beyond_what_the_plug_in_allows
    fails 2, /1001x600: too large, 1000x600 at most/, model, '-o', 'out.png', '--size', '1001x600'
    fails 2, /800x601: too large, 1000x600 at most/, model, '-o', 'out.png', '--size', '800x601'
    fails 2, /at least 1x1/, model, '-o', 'out.png', '--size', '0x10'
    fails 2, /not of the form 960x540/, model, '-o', 'out.png', '--size', '-5x10'
    fails 2, /not of the form 960x540/, model, '-o', 'out.png', '--size', 'large'
  end

  def test_numbers_out_of_their_ranges
    fails 2, /--samples 0: must be between 1/, model, '-o', 'out.png', '--samples', '0'
    fails 2, /--time 0.0: must be between/, model, '-o', 'out.png', '--time', '0'
    fails 2, /--fov 180.0: must be between 1.0 and 170.0/, model, '-o', 'out.png', '--fov', '180'
    fails 2, /--eye 1,2: not of the form/, model, '-o', 'out.png', '--eye', '1,2'
    fails 2, /--target 1,2,x: not of the form/, model, '-o', 'out.png', '--target', '1,2,x'
  end

  def test_no_such_model
    fails 1, /nowhere.dae: no such file/, 'nowhere.dae', '-o', 'out.png'
  end

  def test_a_folder_is_no_model
    fails 1, /this is a folder/, @folder, '-o', 'out.png'
  end

  def test_a_pipe_is_no_model
    pipe = File.join(@folder, 'pipe.obj')
    File.mkfifo(pipe)
    fails 1, /not a regular file/, pipe, '-o', 'out.png'
  end

  def test_formats_that_are_not_read_are_named
    fails 1, /'\.fbx' is not supported; models are dae, zae, gltf, glb, obj, json/, write('m.fbx', 'x'), '-o', 'out.png'
    fails 1, /without an ending is not supported/, write('model', 'x'), '-o', 'out.png'
  end

  def test_what_is_not_a_model
    fails 1, /m.dae: /, write('m.dae', 'not a model'), '-o', 'out.png'
    fails 1, /m.json: not a JSON document/, write('m.json', 'not a model'), '-o', 'out.png'
    fails 1, /m.glb: /, write('m.glb', ''), '-o', 'out.png'
  end

  def test_a_model_without_faces
    fails 1, /the model is empty/, write('m.obj', "v 0 0 0\nv 1 0 0\nv 0 1 0\n# no faces\n"), '-o', 'out.png'
    fails 1, /the model is empty/, write('m.json', document(root: nothing)), '-o', 'out.png'
  end

  def test_names_with_line_breaks_stay_on_one_line
    fails 1, /no such file/, "a\nb.dae", '-o', 'out.png'
  end

  def test_outputs_that_cannot_be_written
    fails 1, /no such folder/, model, '-o', 'nowhere/out.png'
    fails 1, /this is a folder/, model, '-o', File.join(@folder, 'x.png').tap { |folder| Dir.mkdir(folder) }
    fails 1, /pictures are saved as png or exr/, model, '-o', 'out.bmp'
    fails 1, %r{/proc: the folder may not be written}, model, '-o', '/proc/out.png'
  end

  def test_the_output_is_looked_at_before_the_model
    fails 1, /no such folder/, write('m.dae', 'not a model'), '-o', 'nowhere/out.png'
  end

  def test_a_build_that_is_not_there
    fails 1, %r{no such folder; the program is built by './velmar build'}, model, '-o', 'out.png', libraries: '/nowhere'
    fails 1, /velmarsu18 cannot be loaded/, model, '-o', 'out.png', libraries: @folder
  end

  def test_no_probe_stays_behind_in_the_folder
    fails 1, /no such file/, 'nowhere.dae', '-o', 'out.png'
    assert_empty Dir.children(@folder) - ['home']
  end
end
