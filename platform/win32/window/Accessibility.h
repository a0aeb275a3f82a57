// What the window tells assistive technology beyond its captions.
#pragma once

#include <windows.h>

#include "platform/win32/system/ComApartment.h"
#include "wizard/controls/Control.h"

struct IAccPropServices;

namespace kv {

// Attaches names, roles and values to native controls by the system's annotation service
// (IAccPropServices). The service costs start-up time, so it is asked for only once somebody looks.
// The apartment must outlive it.
class Accessibility {
public:
    explicit Accessibility(ComApartment& com) : com_(com) {}
    ~Accessibility();
    Accessibility(const Accessibility&) = delete;
    Accessibility& operator=(const Accessibility&) = delete;

    // Starts the service; true when it has just started. Without it, as on a system that lacks it,
    // the captions must do.
    bool enable() noexcept;

    // Attaches what the control has to say to its window; nothing before the service has started.
    void annotate(const Control& control, HWND window) const noexcept;

    // Takes that off again, before the window goes.
    void clear(HWND window) const noexcept;

    // Tells listeners that a text or value of the control has changed. Costs nothing when nobody
    // listens.
    static void announce(const Control& control, HWND window, Property property) noexcept;

private:
    ComApartment& com_;
    bool asked_ = false;  // for the service
    IAccPropServices* service_ = nullptr;
};

}  // namespace kv
