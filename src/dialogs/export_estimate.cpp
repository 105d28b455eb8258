#include "dialogs/export_estimate.h"

#include "engine/image_process.h"

namespace kelvane {

ExportEstimate::ExportEstimate(const cDIBSection& picture) : traced_(picture.Copy()) {
    if (!cImageProcessDIB().BlackAndWhite2(traced_, traced_, kExportLimit)) traced_.ClearUp();
}

void ExportEstimate::ask(const BoardQuestion& question) {
    question_ = question;
    if (question.mirrored != mirrored_) cImageProcessDIB().Mirror(traced_);
    mirrored_ = question.mirrored;
    BoardQuestion sizes = question;
    sizes.limits = {0, 0};
    report_ = check_board(traced_.view(), sizes);
    checked_ = false;
    counts_.reset();
}

void ExportEstimate::work(ProgressObserver* observer) {
    if (!checked_) {
        report_ = check_board(traced_.view(), question_);
        checked_ = true;
    } else if (!counts_) {
        counts_ = CountExport(traced_.view(), question_.options, observer);
        add_objects(report_, *counts_);
    }
}

} // namespace kelvane
