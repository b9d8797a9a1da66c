#include "tests/support/ImportGate.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <initializer_list>
#include <stdexcept>

namespace jsw::test {

namespace {

enum Decision : int { goOn, answerFailure, callAndAnswerFailure };

/// Builds machine code sequentially.
class Code {
  public:
    explicit Code(unsigned char* at) : at_(at) {}

    Code& bytes(std::initializer_list<unsigned char> code) {
        at_ = std::copy(code.begin(), code.end(), at_);
        return *this;
    }
    /// mov rax, value
    Code& toRax(const void* value) { return bytes({0x48, 0xB8}).address(value); }
    /// mov rcx, value
    Code& toRcx(const void* value) { return bytes({0x48, 0xB9}).address(value); }

  private:
    Code& address(const void* value) {
        std::memcpy(at_, &value, sizeof(value));
        at_ += sizeof(value);
        return *this;
    }

    unsigned char* at_;
};

/// Memory for code, allocated sequentially and never released.
unsigned char* newCode() {
    constexpr std::size_t kPiece = 256;
    constexpr std::size_t kBlock = 64 * kPiece;
    static unsigned char* block = nullptr;
    static std::size_t used = kBlock;
    if (used == kBlock) {
        block = static_cast<unsigned char*>(
            VirtualAlloc(nullptr, kBlock, MEM_RESERVE | MEM_COMMIT, PAGE_EXECUTE_READWRITE));
        if (block == nullptr) throw std::bad_alloc();
        used = 0;
    }
    unsigned char* piece = block + used;
    used += kPiece;
    return piece;
}

}  // namespace

ImportGate::ImportGate(const ImportTable& table) {
    for (const auto& import : table.functions()) {
        auto entry = std::make_unique<Entry>();
        entry->name = import.name;
        void* code = makeCode(entry.get(), *import.thunk);
        entries_.push_back(entry.release());
        overrides_.push_back(std::make_unique<ThunkOverride>(import.thunk, code));
    }
}

/// Called by the code of every import. Preserves the thread's last error.
int ImportGate::decide(Entry* entry) {
    const std::uint32_t call = ++entry->calls;
    const std::uint32_t failing = entry->failingCall;
    if (call != failing && (failing == 0 || call < failing || !entry->failsOn)) return goOn;
    SetLastError(entry->failure.lastError);
    return entry->failure.afterCall ? callAndAnswerFailure : answerFailure;
}

void* ImportGate::makeCode(Entry* entry, void* original) {
    unsigned char* start = newCode();
    Code(start)
        // Saves the arguments in registers during the decision.
        .bytes({0x51, 0x52, 0x41, 0x50, 0x41, 0x51})  // push rcx, rdx, r8, r9
        .bytes({0x48, 0x83, 0xEC, 0x28})              // sub rsp, 0x28
        .toRcx(entry)
        .toRax(reinterpret_cast<void*>(&decide))
        .bytes({0xFF, 0xD0})                          // call rax
        .bytes({0x48, 0x83, 0xC4, 0x28})              // add rsp, 0x28
        .bytes({0x41, 0x59, 0x41, 0x58, 0x5A, 0x59})  // pop r9, r8, rdx, rcx
        .bytes({0x83, 0xF8, answerFailure})           // cmp eax, answerFailure
        .bytes({0x74, 0x22})                          // je answer
        .bytes({0x7F, 0x0C})                          // jg callFirst
        .toRax(original)
        .bytes({0xFF, 0xE0})              // jmp rax
        .bytes({0x48, 0x83, 0xEC, 0x28})  // callFirst: sub rsp, 0x28
        .toRax(original)
        .bytes({0xFF, 0xD0})               // call rax
        .bytes({0x48, 0x83, 0xC4, 0x28})   // add rsp, 0x28
        .toRax(&entry->failure.answer)     // answer:
        .bytes({0x48, 0x8B, 0x00, 0xC3});  // mov rax, [rax]; ret
    return start;
}

ImportGate::Entry& ImportGate::entry(const std::string& name) const {
    const auto found = std::find_if(entries_.begin(), entries_.end(),
                                    [&](const Entry* entry) { return entry->name == name; });
    if (found == entries_.end()) throw std::invalid_argument("not imported: " + name);
    return **found;
}

std::uint32_t ImportGate::calls(const std::string& name) const {
    return entry(name).calls;
}

void ImportGate::fail(const std::string& name, std::uint32_t call, const Failure& failure,
                      bool on) {
    Entry& failing = entry(name);
    failing.failure = failure;
    failing.failsOn = on;
    failing.failingCall = call;
}

bool ImportGate::hasFailed() const {
    return std::any_of(entries_.begin(), entries_.end(), [](const Entry* entry) {
        return entry->failingCall != 0 && entry->calls >= entry->failingCall;
    });
}

void ImportGate::reset() {
    for (Entry* entry : entries_) {
        entry->failingCall = 0;
        entry->calls = 0;
    }
}

}  // namespace jsw::test
