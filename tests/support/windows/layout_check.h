// Whether a dialog's texts fit where they stand.
#pragma once

#include <windows.h>

namespace kelvane::test {

/// Fails the test for each visible control of `dialog` that reaches over the dialog's border, and
/// for each caption that is cut, missing or too long for its control.
void expect_captions_fit(HWND dialog);

} // namespace kelvane::test
