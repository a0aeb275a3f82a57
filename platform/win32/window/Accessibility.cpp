#include "platform/win32/window/Accessibility.h"

#include <array>

#include <initguid.h>

#include <oleacc.h>

#include "platform/win32/system/Text.h"

namespace kv {
namespace {

// Names from newer headers than all compilers have.
DEFINE_GUID(kLiveSettingProperty, 0xc12bcd8e, 0x2a8e, 0x4950, 0x8a, 0xe7, 0x36, 0x25, 0x11, 0x1d,
            0x58, 0xeb);                      // LiveSetting_Property_GUID
constexpr LONG kPolite = 1;                   // of LiveSetting
constexpr DWORD kLiveRegionChanged = 0x8019;  // EVENT_OBJECT_LIVEREGIONCHANGED

// The properties that clear() takes off.
const std::array<MSAAPROPID, 4> kAttached{PROPID_ACC_NAME, PROPID_ACC_ROLE, PROPID_ACC_VALUE,
                                          kLiveSettingProperty};

}  // namespace

Accessibility::~Accessibility() {
    if (service_ != nullptr) service_->Release();
}

bool Accessibility::enable() noexcept {
    if (asked_) return false;
    asked_ = true;
    service_ =
        static_cast<IAccPropServices*>(com_.create(CLSID_AccPropServices, IID_IAccPropServices));
    return service_ != nullptr;
}

void Accessibility::annotate(const Control& control, HWND window) const noexcept {
    if (service_ == nullptr) return;
    const auto attachText = [&](const MSAAPROPID& property, const std::string& text) {
        if (!text.empty())
            service_->SetHwndPropStr(window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF,
                                     property, toWide(text).c_str());
    };
    const auto attachNumber = [&](const MSAAPROPID& property, LONG number) {
        VARIANT value{};
        value.vt = VT_I4;
        value.lVal = number;
        service_->SetHwndProp(window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, property,
                              value);
    };
    try {
        attachText(PROPID_ACC_NAME, control.accessibleName());
        attachText(PROPID_ACC_VALUE, control.accessibleValue());
        if (isPanel(control)) attachNumber(PROPID_ACC_ROLE, ROLE_SYSTEM_PROPERTYPAGE);
        if (control.kind() != ControlKind::Label) return;
        if (!control.accessibleValue().empty())
            attachNumber(PROPID_ACC_ROLE, ROLE_SYSTEM_PROGRESSBAR);
        else
            attachNumber(kLiveSettingProperty, kPolite);  // changes are spoken when there is time
    } catch (...) {
        // The captions must do.
    }
}

void Accessibility::clear(HWND window) const noexcept {
    if (service_ != nullptr)
        service_->ClearHwndProps(window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF,
                                 kAttached.data(), static_cast<int>(kAttached.size()));
}

void Accessibility::announce(const Control& control, HWND window, Property property) noexcept {
    const auto notify = [&](DWORD event) {
        NotifyWinEvent(event, window, OBJID_CLIENT, CHILDID_SELF);
    };
    switch (property) {
        case Property::AccessibleName: notify(EVENT_OBJECT_NAMECHANGE); break;
        case Property::AccessibleValue: notify(EVENT_OBJECT_VALUECHANGE); break;
        case Property::Caption:
            if (control.kind() == ControlKind::Label) notify(kLiveRegionChanged);
            break;
        default: break;
    }
}

}  // namespace kv
