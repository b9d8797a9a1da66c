#pragma once

#include "jsw/modules/ModuleBinding.h"
#include <jsw/legacy.h>

#include <cstdint>
#include <memory>
#include <string>

namespace jsw {

/// The older job window module, which lies in the printer driver's own folder, for the length of
/// one prompt. Nothing is raised; a module that is not loaded is reported at every call.
class LegacyJswGui {
  public:
    LegacyJswGui();
    virtual ~LegacyJswGui();
    LegacyJswGui(const LegacyJswGui&) = delete;
    LegacyJswGui& operator=(const LegacyJswGui&) = delete;

    /// True when the module has prepared itself.
    bool jswInitEx(const std::string& text);
    void jswTerminate();
    /// Returns when the prompt is answered.
    void jswDisplayPrompt(std::uint32_t promptType, std::uint32_t totalPages);
    void jswPostDlgMsg(void* message);

  private:
    template <class Function>
    Function* find(const char* operation, const char* name, MethodTrace& trace) const;

    std::unique_ptr<ModuleDll> dll_;
};

}  // namespace jsw
