#include "plugin/materials/mat_manager.h"

#include <glog/logging.h>

#include "plugin/materials/mat_manager_ext.h"

namespace Velmar {

bool MaterialManager::Init() {
    LOG(INFO) << "Creating MaterialManager...";
    MaterialManagerExt::Init();
    LOG(INFO) << "MaterialManager Created";
    return true;
}

void MaterialManager::Cleanup() {
    LOG(INFO) << "MaterialManager Destroyed";
}

}  // namespace Velmar
