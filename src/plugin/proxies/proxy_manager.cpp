#include "plugin/proxies/proxy_manager.h"

#include "plugin/proxies/proxy.h"
#include "plugin/utils/not_implemented.h"

namespace Velmar {

std::shared_ptr<Proxy> ProxyManager::CreateProxy(const std::string&) {
    throw NotImplemented("ProxyManager::CreateProxy");
}

}  // namespace Velmar
