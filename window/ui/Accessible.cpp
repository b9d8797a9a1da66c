#include "window/ui/Accessible.h"

#include "common/Encoding.h"

#include <windows.h>

#include <atomic>
#include <new>
#include <oleacc.h>
#include <oleauto.h>
#include <utility>

namespace jsw::window {
namespace {

HRESULT giveText(const std::string& text, BSTR* answer) {
    if (!answer) return E_INVALIDARG;
    *answer = nullptr;
    if (text.empty()) return S_FALSE;
    const std::wstring letters = common::wide(text);
    *answer = SysAllocStringLen(letters.data(), static_cast<UINT>(letters.size()));
    return *answer ? S_OK : E_OUTOFMEMORY;
}

HRESULT giveNumber(long number, VARIANT* answer) {
    if (!answer) return E_INVALIDARG;
    answer->vt = VT_I4;
    answer->lVal = number;
    return S_OK;
}

/** The object of one control. It is called on the window's thread. */
class AccessibleControl : public IAccessible {
  public:
    explicit AccessibleControl(std::shared_ptr<AccessibleModel> model) : model_(std::move(model)) {}
    virtual ~AccessibleControl() = default;
    AccessibleControl(const AccessibleControl&) = delete;
    AccessibleControl& operator=(const AccessibleControl&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        if (!object) return E_POINTER;
        const bool known = IsEqualIID(id, __uuidof(IUnknown)) ||
                           IsEqualIID(id, __uuidof(IDispatch)) ||
                           IsEqualIID(id, __uuidof(IAccessible));
        *object = known ? static_cast<IAccessible*>(this) : nullptr;
        if (known) AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

    // No scripting interface.
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        if (count) *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) override {
        return E_NOTIMPL;
    }

    HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** parent) override {
        if (!parent) return E_INVALIDARG;
        *parent = nullptr;
        if (!model_->control) return CO_E_OBJNOTCONNECTED;
        return AccessibleObjectFromWindow(model_->control, static_cast<DWORD>(OBJID_WINDOW),
                                          __uuidof(IDispatch), reinterpret_cast<void**>(parent));
    }
    HRESULT STDMETHODCALLTYPE get_accChildCount(long* count) override {
        if (!count) return E_INVALIDARG;
        *count = static_cast<long>(model_->parts.size());
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get_accChild(VARIANT, IDispatch** child) override {
        if (!child) return E_INVALIDARG;
        *child = nullptr;
        return S_FALSE;  // parts have no objects
    }
    HRESULT STDMETHODCALLTYPE get_accName(VARIANT which, BSTR* name) override {
        return giveTextOf(which, &AccessibleItem::name, name);
    }
    HRESULT STDMETHODCALLTYPE get_accValue(VARIANT which, BSTR* value) override {
        return giveTextOf(which, &AccessibleItem::value, value);
    }
    HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT which, BSTR* description) override {
        return giveTextOf(which, &AccessibleItem::description, description);
    }
    HRESULT STDMETHODCALLTYPE get_accRole(VARIANT which, VARIANT* role) override {
        const AccessibleItem* item = find(which);
        return item ? giveNumber(item->role, role) : E_INVALIDARG;
    }
    HRESULT STDMETHODCALLTYPE get_accState(VARIANT which, VARIANT* state) override {
        const AccessibleItem* item = find(which);
        if (!item) return E_INVALIDARG;
        long bits = item->state;
        if (!model_->control || !IsWindowVisible(model_->control)) bits |= STATE_SYSTEM_INVISIBLE;
        if (model_->control && model_->control == GetFocus()) bits |= STATE_SYSTEM_FOCUSED;
        return giveNumber(bits, state);
    }
    HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT, BSTR*) override { return DISP_E_MEMBERNOTFOUND; }
    HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR*, VARIANT, long*) override {
        return DISP_E_MEMBERNOTFOUND;
    }
    HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT, BSTR*) override {
        return DISP_E_MEMBERNOTFOUND;
    }
    HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT*) override { return DISP_E_MEMBERNOTFOUND; }
    HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT*) override { return DISP_E_MEMBERNOTFOUND; }
    HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT, BSTR*) override {
        return DISP_E_MEMBERNOTFOUND;
    }
    HRESULT STDMETHODCALLTYPE accSelect(long, VARIANT) override { return DISP_E_MEMBERNOTFOUND; }
    HRESULT STDMETHODCALLTYPE accLocation(long* left, long* top, long* width, long* height,
                                          VARIANT which) override {
        const AccessibleItem* item = find(which);
        if (!item || !left || !top || !width || !height) return E_INVALIDARG;
        RECT area{item->box.left, item->box.top, item->box.right, item->box.bottom};
        if (item->box.empty()) GetClientRect(model_->control, &area);
        MapWindowPoints(model_->control, nullptr, reinterpret_cast<POINT*>(&area), 2);
        *left = area.left;
        *top = area.top;
        *width = area.right - area.left;
        *height = area.bottom - area.top;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE accNavigate(long, VARIANT, VARIANT*) override {
        return DISP_E_MEMBERNOTFOUND;
    }
    HRESULT STDMETHODCALLTYPE accHitTest(long left, long top, VARIANT* which) override {
        if (!which) return E_INVALIDARG;
        POINT point{left, top};
        ScreenToClient(model_->control, &point);
        const Box pixel{static_cast<int>(point.x), static_cast<int>(point.y),
                        static_cast<int>(point.x) + 1, static_cast<int>(point.y) + 1};
        for (std::size_t i = 0; i < model_->parts.size(); ++i) {
            if (model_->parts[i].box.overlaps(pixel)) {
                return giveNumber(static_cast<long>(i) + 1, which);
            }
        }
        return giveNumber(CHILDID_SELF, which);
    }
    /** Everything that can be pressed is a real button, which the system serves. */
    HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT) override { return DISP_E_MEMBERNOTFOUND; }
    HRESULT STDMETHODCALLTYPE put_accName(VARIANT, BSTR) override { return DISP_E_MEMBERNOTFOUND; }
    HRESULT STDMETHODCALLTYPE put_accValue(VARIANT, BSTR) override { return DISP_E_MEMBERNOTFOUND; }

  private:
    /** The control for 0, its parts from 1; null if there is no such part. */
    [[nodiscard]] const AccessibleItem* find(const VARIANT& which) const {
        if (which.vt != VT_I4 || which.lVal < 0) return nullptr;
        if (which.lVal == CHILDID_SELF) return &model_->self;
        const auto index = static_cast<std::size_t>(which.lVal) - 1;
        return index < model_->parts.size() ? &model_->parts[index] : nullptr;
    }

    HRESULT giveTextOf(const VARIANT& which, std::string AccessibleItem::*text,
                       BSTR* answer) const {
        const AccessibleItem* item = find(which);
        return item ? giveText(item->*text, answer) : E_INVALIDARG;
    }

    std::shared_ptr<AccessibleModel> model_;
    std::atomic<ULONG> references_ = 1;
};

}  // namespace

AccessibilityServer::~AccessibilityServer() {
    if (comBegun_) CoUninitialize();
}

LRESULT AccessibilityServer::answer(const std::shared_ptr<AccessibleModel>& model, WPARAM wParam,
                                    LPARAM lParam) {
    // The upper half of the parameter has no meaning.
    if (static_cast<DWORD>(lParam) != static_cast<DWORD>(OBJID_CLIENT)) return 0;
    if (!comBegun_) comBegun_ = SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
    auto* const object = new (std::nothrow) AccessibleControl(model);
    if (!object) return 0;
    const LRESULT result = LresultFromObject(__uuidof(IAccessible), wParam, object);
    object->Release();
    return result > 0 ? result : 0;
}

}  // namespace jsw::window
