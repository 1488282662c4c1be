// Loads the files of proxies. Ruby thread only.
#pragma once

#include <memory>
#include <string>

namespace Velmar {

class Proxy;

class ProxyManager {
public:
    /// The proxy of a file. Throws NotImplemented and changes nothing.
    static std::shared_ptr<Proxy> CreateProxy(const std::string& path);
};

}  // namespace Velmar
