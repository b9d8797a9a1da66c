#include "samples/device/Devices.h"

#include <algorithm>
#include <array>
#include <utility>

namespace jsw::sample {
namespace {

constexpr int32_t kFirstHandle = 8193;
constexpr size_t kCommand = 4;
constexpr std::array<uint8_t, 2> kLoopback{0x03, 0x04};
constexpr std::array<uint8_t, 5> kPrintHeadClass{0xE0, 0x8F, 0x14, 0x03, 0x00};

bool isCommand(std::span<const uint8_t> request, std::span<const uint8_t> command) {
    return request.size() >= kCommand + command.size() &&
           std::ranges::equal(request.subspan(kCommand, command.size()), command);
}

}  // namespace

Devices::Devices(std::vector<DevicePrinter> printers) : printers_(std::move(printers)) {
    for (const DevicePrinter& printer : printers_) {
        add(DeviceKind::printer, printer.port, printer);
        for (const std::string& port : printer.hids) add(DeviceKind::hid, port, printer);
        for (const std::string& port : printer.scanners) add(DeviceKind::scanner, port, printer);
    }
}

void Devices::add(DeviceKind kind, const std::string& port, const DevicePrinter& printer) {
    const auto handle = kFirstHandle + static_cast<int32_t>(devices_.size());
    devices_.push_back({handle, kind, port, &printer});
}

const Device* Devices::find(DeviceKind kind, int32_t handle) const {
    const auto device = std::ranges::find_if(devices_, [&](const Device& candidate) {
        return candidate.handle == handle && candidate.kind == kind;
    });
    return device == devices_.end() ? nullptr : &*device;
}

std::vector<uint8_t> answerPacket(const DevicePrinter& printer, std::span<const uint8_t> request) {
    if (isCommand(request, kLoopback)) {
        return {request.begin(), request.end()};
    }
    if (printer.printHeadClass && isCommand(request, kPrintHeadClass)) {
        return {0xA5, 0x00, 0x0A, 0x50, 0xE0, 0x8F, 0x20, 0x03, 0x00, *printer.printHeadClass,
                0x00, 0x00, 0x00};
    }
    return {};
}

}  // namespace jsw::sample
