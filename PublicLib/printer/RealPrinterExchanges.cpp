// RealPrinter's queries to the device.

#include "PublicLib/logging/MethodTrace.h"
#include "PublicLib/printer/NpaPacket.h"
#include "PublicLib/printer/PcsClient.h"
#include "PublicLib/printer/RealPrinter.h"

#include <windows.h>

#include <array>
#include <mutex>

namespace jsw {

namespace {

constexpr std::int32_t kUnknown = -1;

/// Whether the response has every required byte; logs the first that differs.
bool isAsExpected(std::span<const std::uint8_t> response,
                  std::span<const npa::ExpectedByte> expected, MethodTrace& trace) {
    trace.add("NPA response flagbyte = ", response[npa::kFlagByte]);
    for (const auto& [offset, value, message] : expected) {
        if (response[offset] == value) continue;
        trace.add(message, response[offset]);
        return false;
    }
    return true;
}

}  // namespace

JswDeviceStatus RealPrinter::exchange(std::span<const std::uint8_t> request,
                                      std::span<std::uint8_t> response, std::uint32_t& length,
                                      MethodTrace& trace) const {
    const PcsHandle handle = fields().prtHandle;
    if (handle == 0) {
        trace.add("Invalid Printer Handle.");
        return ERROR_INVALID_HANDLE;
    }
    const auto client = makeClient(false);
    if (!client) return ERROR_FILE_NOT_FOUND;
    PcsStatus status = client->openPrinter(handle);
    if (status != ERROR_SUCCESS) {
        trace.add("OpenPrinter failed with rc =", status);
        return status;
    }
    status = client->exchangeBidiPrinter(
        handle, request.data(), static_cast<std::uint32_t>(request.size()), response.data(),
        static_cast<std::uint32_t>(response.size()), &length);
    client->closePrinter(handle);
    if (status != ERROR_SUCCESS) {
        trace.add("pcsClient->exchangeBidiPrinter failed with rc =", status);
    }
    return status;
}

std::uint32_t RealPrinter::ping() {
    MethodTrace trace(component::kJsw, "RealPrinter::ping():");
    std::array<std::uint8_t, 8> response{};
    std::uint32_t length = 0;
    const PcsStatus status = exchange(npa::kLoopbackRequest, response, length, trace);
    if (status != ERROR_SUCCESS) return status;
    if (length < response.size()) {
        trace.add("NPA loopback cmd response's size ret (8 bytes sent )is less than expected =.",
                  length);
        return ERROR_INVALID_DATA;
    }
    return isAsExpected(response, npa::kLoopbackResponse, trace) ? ERROR_SUCCESS
                                                                 : ERROR_INVALID_DATA;
}

std::int32_t RealPrinter::getPrintHeadType() {
    MethodTrace trace(component::kJsw, "RealPrinter::getPrintHeadType():");
    const std::lock_guard lock(printHeadLock_);  // others wait for the device's answer
    if (printHeadClassKnown_) {
        trace.add("Retriving the cached value of the print head class =", fields().printHeadClass);
        return fields().printHeadClass;
    }
    const std::int32_t printHeadClass = askPrintHeadClass(trace);
    if (printHeadClass == kUnknown) return kUnknown;
    trace.add("NPA rsp - printHeadClass = ", printHeadClass);
    setPrintHeadClass(printHeadClass);
    printHeadClassKnown_ = true;
    return printHeadClass;
}

std::int32_t RealPrinter::askPrintHeadClass(MethodTrace& trace) const {
    std::array<std::uint8_t, 13> response{};
    std::uint32_t length = 0;
    if (exchange(npa::kPrintHeadClassRequest, response, length, trace) != ERROR_SUCCESS) {
        return kUnknown;
    }
    if (length != response.size()) {
        trace.add("loopback response size returned =", length, " is wrong.");
        return kUnknown;
    }
    if (!isAsExpected(response, npa::kPrintHeadClassResponse, trace)) return kUnknown;
    return response[npa::kPrintHeadClassByte];
}

}  // namespace jsw
