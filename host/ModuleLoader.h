// Extension modules: libraries that the host loads, starts and stops.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/drawing/RxModule.h"

namespace host {

// A library stays mapped until the process ends, since objects of its classes may outlive its stop.
class ModuleLoader {
  public:
    explicit ModuleLoader(std::function<void(const OdString&)> log);
    ~ModuleLoader();  // UnloadAll

    // Loads the library and starts its module; not owned by the caller. Throws host::Error: the
    // library cannot be loaded, is no module, was built for another version, or its start failed.
    OdRxModule* Load(const std::string& nativePath);
    // Stops all modules, the last one first. What a stop raises is logged, and the object of that
    // module stays.
    void UnloadAll();

    const std::vector<OdRxModule*>& Modules() const { return modules; }

  private:
    void Start(const std::string& path, OdRxModule* module);  // throws host::Error
    void Stop(OdRxModule* module);

    std::function<void(const OdString&)> log;
    std::vector<OdRxModule*> modules;
};

}  // namespace host
