#include "app/form_operations.h"

#include "texts/error_text.h"

#include "ids.h"

namespace kelvane {

// Not every operation reports its end, so the report of the previous one is removed first.
bool operate(MainServices& main, frmImage& form, const DocumentOperation& operation) {
    main.SetStatus(L"", L"#", L"#");
    bool done = false;
    try {
        const Busy busy = main.busy();
        operation(form.document());
        done = true;
    } catch (const std::exception& error) {
        main.show_error(IDS_IMAGE_PROCESS_ERROR, error_text(error));
    }
    main.ShowProgress(false);
    return done;
}

void process(MainServices& main, frmImage& form, const DocumentOperation& operation) {
    operate(main, form, operation);
    form.Render();
    form.show_status(); // the size may have changed
}

bool open_temporary(MainServices& main, const std::wstring& file, OnFailure on_failure) {
    return main.new_form([&](frmImage& form) { return form.OpenFile(file, true, on_failure); });
}

} // namespace kelvane
