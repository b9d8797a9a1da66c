#pragma once

#include <jsw/view.h>

/// The view module's entry points to which the binding only forwards: the tag of each one's trace,
/// and its name.
namespace jsw::view {

template <class Function>
struct Forward {
    using FunctionType = Function;
    const char* tag;
    const char* name;
};

inline constexpr Forward<JswViewPlain> kInitialize{"BillboardView::initialize: ", "Initialize"};
inline constexpr Forward<JswViewPlain> kUninitialize{"BillboardView::uninitialize: ",
                                                     "Uninitialize"};
inline constexpr Forward<JswViewText> kSetJobName{"BillboardView::setJobName: ", "SetJobName"};
inline constexpr Forward<JswViewText> kSetPrinterFriendlyName{
    "BillboardView::setPrinterFriendlyName: ", "SetPrinterFriendlyName"};
inline constexpr Forward<JswViewNumber> kSetJobType{"BillboardView::setJobType: ", "SetJobType"};
inline constexpr Forward<JswViewNumber> kSetCurrentPage{"BillboardView::setCurrentPage: ",
                                                        "SetCurrentPage"};
inline constexpr Forward<JswViewNumber> kSetTotalPages{"BillboardView::setTotalPages: ",
                                                       "SetTotalPages"};
inline constexpr Forward<JswViewNumber> kSetCurrentCopy{"BillboardView::setCurrentCopy: ",
                                                        "SetCurrentCopy"};
inline constexpr Forward<JswViewNumber> kSetTotalCopies{"BillboardView::setTotalCopies: ",
                                                        "SetTotalCopies"};
inline constexpr Forward<JswViewInkInfo> kSetInkInfo{"BillboardView::setInkInfo: ", "SetInkInfo"};
inline constexpr Forward<JswViewNumber> kSetPortType{"BillboardView::setPortType: ", "SetPortType"};
inline constexpr Forward<JswViewSetEventCallback> kSetJswCallback{"BillboardView::setJSWCallback: ",
                                                                  "SetJswCallback"};
inline constexpr Forward<JswViewSetBillboardCallback> kSetBillboardCallback{
    "BillboardView::setBillboardCallback: ", "SetBillboardCallback"};
inline constexpr Forward<JswViewSetSaveAppearanceCallback> kSetSaveAppearanceCallback{
    "BillboardView::setSaveAppearanceCallback: ", "SetSaveAppearanceCallback"};
inline constexpr Forward<JswViewSetSaveValueCallback> kSetSaveValueCallback{
    "BillboardView::setSaveValueCallback: ", "SetSaveValueCallback"};
inline constexpr Forward<JswViewSetUpdateSoftwareCallback> kSetUpdateSoftwareCallback{
    "BillboardView::setUpdateSoftwareCallback: ", "SetUpdateSoftwareCallback"};

}  // namespace jsw::view
