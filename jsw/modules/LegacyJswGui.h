#pragma once

#include "jsw/modules/ModuleBinding.h"
#include <jsw/legacy.h>

#include <cstdint>
#include <memory>
#include <string>

namespace jsw {

/// The older job window module from the printer driver's own folder, loaded for one prompt. Used
/// only on the prompt's thread. Nothing is raised; if the module is not loaded, every call logs
/// that.
class LegacyJswGui {
  public:
    LegacyJswGui();
    virtual ~LegacyJswGui();
    LegacyJswGui(const LegacyJswGui&) = delete;
    LegacyJswGui& operator=(const LegacyJswGui&) = delete;

    /// True if the module has prepared itself.
    [[nodiscard]] bool jswInitEx(const std::string& text);
    void jswTerminate();
    /// Returns when the prompt is answered.
    void jswDisplayPrompt(std::uint32_t promptType, std::uint32_t totalPages);
    void jswPostDlgMsg(void* message);

  private:
    template <class Function>
    ModuleCall<Function> find(const char* operation, const char* name, MethodTrace& trace) const;

    std::unique_ptr<ModuleDll> dll_;
};

}  // namespace jsw
