#include "dialogs/frmExport.h"

#include "base/text.h"
#include "dialogs/drop_down_list.h"
#include "dialogs/preview_size.h"
#include "engine/image_process.h"
#include "texts/layer_names.h"

#include "ids.h"

namespace kelvane {
namespace {

constexpr Caption kCaptions[] = {
    {IDC_EXPORT_OPTIONS, IDS_EXPORT_OPTIONS},
    {IDC_EXPORT_LAYER_LABEL, IDS_EXPORT_LAYER},
    {IDC_EXPORT_VERSION_LABEL, IDS_EXPORT_VERSION},
    {IDC_EXPORT_SIZE_LABEL, IDS_EXPORT_SIZE},
    {IDC_EXPORT_UNIT_LABEL, IDS_EXPORT_UNIT},
    {IDC_EXPORT_TRACING, IDS_EXPORT_TRACING},
    {IDC_EXPORT_FULL, IDS_EXPORT_FULL},
    {IDC_EXPORT_FULL_POLYGON, IDS_EXPORT_FULL_POLYGON},
    {IDC_EXPORT_FULL_WIRE, IDS_EXPORT_FULL_WIRE},
    {IDC_EXPORT_LINEWISE, IDS_EXPORT_LINEWISE},
    {IDC_EXPORT_LINEWISE_POLYGON, IDS_EXPORT_LINEWISE_POLYGON},
    {IDC_EXPORT_LINEWISE_WIRE, IDS_EXPORT_LINEWISE_WIRE},
    {IDC_EXPORT_LINEWISE_RECTANGLE, IDS_EXPORT_LINEWISE_RECTANGLE},
    {IDC_EXPORT_PREVIEW_LABEL, IDS_EXPORT_PREVIEW},
    {IDC_EXPORT_HINT, IDS_EXPORT_HINT},
    {IDOK, IDS_EXPORT_OK},
    {IDCANCEL, IDS_EXPORT_CANCEL},
};

} // namespace

frmExport::frmExport(const SettingsFile& settings, const cDIBSection& picture)
    : Form(IDD_EXPORT, IDS_EXPORT_TITLE, kCaptions), settings_(settings), picture_(picture) {}

void frmExport::load() {
    Form::load();
    choices_ = ExportChoices::read(settings_);
    fill_lists();
    show_choices();
    loadPreview();
    density_changed();
}

void frmExport::density_changed() {
    fit_preview(IDC_EXPORT_PREVIEW);
}

void frmExport::fill_lists() const {
    for (const std::wstring& label : layer_labels())
        add_entry(control(IDC_EXPORT_LAYER), label);
    for (const EagleVersion& version : kEagleVersions)
        add_entry(control(IDC_EXPORT_VERSION), wide_text(version.name));
    for (const Unit& unit : kUnits)
        add_entry(control(IDC_EXPORT_UNIT), wide_text(unit.name));
}

void frmExport::show_choices() const {
    select_entry(control(IDC_EXPORT_LAYER), choices_.layer);
    set_text(IDC_EXPORT_SIZE, choices_.size);
    select_entry(control(IDC_EXPORT_UNIT), choices_.unit);
    select_entry(control(IDC_EXPORT_VERSION), choices_.version);
    check_radio(IDC_EXPORT_FULL, IDC_EXPORT_LINEWISE,
                choices_.full_autotrace ? IDC_EXPORT_FULL : IDC_EXPORT_LINEWISE);
    check_radio(IDC_EXPORT_FULL_POLYGON, IDC_EXPORT_FULL_WIRE,
                IDC_EXPORT_FULL_POLYGON + choices_.autotrace_shape);
    check_radio(IDC_EXPORT_LINEWISE_POLYGON, IDC_EXPORT_LINEWISE_RECTANGLE,
                IDC_EXPORT_LINEWISE_POLYGON + choices_.linewise_shape);
}

ExportChoices frmExport::read_controls() const {
    ExportChoices choices;
    choices.layer = selected_entry(control(IDC_EXPORT_LAYER));
    choices.size = text(IDC_EXPORT_SIZE);
    choices.unit = selected_entry(control(IDC_EXPORT_UNIT));
    choices.version = selected_entry(control(IDC_EXPORT_VERSION));
    choices.full_autotrace = checked(IDC_EXPORT_FULL);
    choices.autotrace_shape = checked(IDC_EXPORT_FULL_POLYGON) ? kShapePolygon : kShapeWire;
    choices.linewise_shape = checked(IDC_EXPORT_LINEWISE_POLYGON) ? kShapePolygon
                             : checked(IDC_EXPORT_LINEWISE_WIRE)  ? kShapeWire
                                                                  : kShapeRectangle;
    return choices;
}

bool frmExport::confirm() {
    choices_ = read_controls();
    choices_.write(settings_);
    return true;
}

void frmExport::loadPreview() {
    preview_.ClearUp();
    cDIBSection reduced = picture_.Copy();
    if (!cImageProcessDIB().BlackAndWhite2(reduced, reduced, kExportLimit)) return;
    const PreviewSize size = preview_size(reduced.Width(), reduced.Height());
    preview_ = reduced.Resample(size.height, size.width);
}

} // namespace kelvane
