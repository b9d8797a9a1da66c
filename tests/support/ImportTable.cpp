#include "tests/support/ImportTable.h"

#include <algorithm>
#include <stdexcept>

namespace jsw::test {

namespace {

/// Some imports are data of the C run-time library.
bool isCode(const void* address) {
    MEMORY_BASIC_INFORMATION memory{};
    constexpr DWORD kExecutable =
        PAGE_EXECUTE | PAGE_EXECUTE_READ | PAGE_EXECUTE_READWRITE | PAGE_EXECUTE_WRITECOPY;
    return VirtualQuery(address, &memory, sizeof(memory)) != 0 &&
           (memory.Protect & kExecutable) != 0;
}

}  // namespace

ImportTable::ImportTable(HMODULE library) {
    if (library == nullptr) throw std::invalid_argument("the library is not loaded");
    auto* base = reinterpret_cast<char*>(library);
    const auto* dos = reinterpret_cast<IMAGE_DOS_HEADER*>(base);
    const auto* nt = reinterpret_cast<IMAGE_NT_HEADERS64*>(base + dos->e_lfanew);
    const auto& directory = nt->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    const auto* import =
        reinterpret_cast<IMAGE_IMPORT_DESCRIPTOR*>(base + directory.VirtualAddress);
    for (; import->Name != 0; ++import) {
        const auto* name = reinterpret_cast<IMAGE_THUNK_DATA64*>(base + import->OriginalFirstThunk);
        auto* thunk = reinterpret_cast<void**>(base + import->FirstThunk);
        for (; name->u1.AddressOfData != 0; ++name, ++thunk) {
            if (IMAGE_SNAP_BY_ORDINAL64(name->u1.Ordinal) || !isCode(*thunk)) continue;
            const auto* byName =
                reinterpret_cast<IMAGE_IMPORT_BY_NAME*>(base + name->u1.AddressOfData);
            functions_.push_back({base + import->Name, byName->Name, thunk});
        }
    }
}

void** ImportTable::thunk(const std::string& name) const {
    const auto found = std::find_if(functions_.begin(), functions_.end(),
                                    [&](const Import& import) { return import.name == name; });
    if (found == functions_.end()) throw std::invalid_argument("not imported: " + name);
    return found->thunk;
}

ThunkOverride::ThunkOverride(void** thunk, void* target) : thunk_(thunk) {
    DWORD before = 0;
    if (VirtualProtect(thunk, sizeof(*thunk), PAGE_READWRITE, &before) == FALSE) {
        throw std::runtime_error("the import table cannot be written");
    }
    before_ = InterlockedExchangePointer(thunk_, target);
}

ThunkOverride::~ThunkOverride() {
    InterlockedExchangePointer(thunk_, before_);
}

}  // namespace jsw::test
