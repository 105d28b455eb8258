// Running operations on documents, as the commands do it.
#pragma once

#include "app/image_document.h"
#include "app/image_window.h"
#include "app/main_services.h"

#include <functional>
#include <string>

namespace kelvane {

using DocumentOperation = std::function<void(ImageDocument&)>;

/// Runs an operation on the form's document with progress bar and wait cursor. False with a message
/// when it failed; the form then has to be drawn all the same.
bool operate(MainServices& main, frmImage& form, const DocumentOperation& operation);

/// `operate`, then draws the picture and shows its size.
void process(MainServices& main, frmImage& form, const DocumentOperation& operation);

/// Opens a temporary file in a new document, which is named "Image" and a number. False when it
/// cannot be read.
bool open_temporary(MainServices& main, const std::wstring& file,
                    OnFailure on_failure = OnFailure::Tell);

} // namespace kelvane
