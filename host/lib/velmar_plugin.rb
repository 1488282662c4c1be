# frozen_string_literal: true

# The class methods that the plug-in calls in the script layer of its host.
module VelmarPlugin
  # The scene settings that the host keeps for its model.
  class Settings
    class << self
      # What the plug-in last told of the daylight, text by text; empty before it did.
      def environment
        @environment ||= {}
      end

      # Called when the daylight is edited in the render window.
      def update_environment(settings)
        @environment = settings
        true
      end
    end
  end

  module Observers
    # Watches over the model on behalf of the plug-in.
    class SceneObserver
      class << self
        # Called when the render window is closed, to store the scene with the model. A model file that is only read
        # has nowhere to store it.
        def embed_model_in_skp
          true
        end
      end
    end
  end
end
