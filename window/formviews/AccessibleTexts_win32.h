#pragma once

#include <string>

#include "platform/win32/Com.h"

#include <oleacc.h>

namespace tarvex {

/// What a screen reader is told of a control in place of what the system finds out by itself: the
/// control's own text, or the label before it. Empty ones are left to the system.
struct AccessibleTexts {
    std::u16string name;
    std::u16string description;
};

/// Tells screen readers such texts, through a library of the system that is loaded for the first
/// one. Where it is missing nothing happens.
class AccessibleAnnotations {
public:
    AccessibleAnnotations();

    void Set(HWND control, const AccessibleTexts& texts);

private:
    SystemLibrary ole_;
    ComApartment apartment_;
    ComPtr<IAccPropServices> services_;
};

}  // namespace tarvex
