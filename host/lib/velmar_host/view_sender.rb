# frozen_string_literal: true

require 'json'

module VelmarHost
  # Sends the picture's size and the view to the plug-in.
  class ViewSender
    def initialize(ext: Object)
      @ext = ext
    end

    # `fov` of the camera is vertical and `height` in inches, as the modelling application counts them.
    def show(camera, width:, height:, samples:)
      @ext::VelmarExt.set_view_extents(width, height)
      @ext::VelmarExt.set_camera_pos(camera.eye, camera.target, camera.up)
      @ext::VelmarExt.set_camera_view(camera.parallel ? camera.height : camera.fov, camera.parallel ? true : false)
      @ext::VelmarExt.set_scene_params(JSON.generate(quality: quality(width, height, samples)))
    end

    private

    def quality(width, height, samples)
      { width: width, height: height, sizeType: 0, maxSamples: samples, update: true }
    end
  end
end
