#include "app/image_document.h"

#include "base/file_bytes.h"
#include "image/bitmap_file.h"
#include "image/picture_reader.h"
#include "image/size_limit.h"
#include "process/dark_bounds.h"
#include "process/tone.h"
#include "settings/catalogue.h"
#include "texts/string_table.h"

#include "ids.h"

#include <new>
#include <utility>

namespace kelvane {
namespace {

constexpr float kSaturation = 0.5f;

cDIBSection created(int width, int height) {
    cDIBSection picture;
    if (!picture.Create(width, height)) throw std::bad_alloc();
    return picture;
}

cDIBSection resampled(const cDIBSection& picture, int width, int height) {
    cDIBSection result = picture.Resample(height, width);
    if (result.empty()) throw std::bad_alloc();
    return result;
}

bool is_not_blank(const cDIBSection& picture) {
    return DarkBounds(picture.view(), kAnyGrey).has_value();
}

// For operations that refuse only when there is no memory for their result.
void expect_memory(bool done) {
    if (!done) throw std::bad_alloc();
}

// A picture that white paper would leave blank is shown as ink, if it has transparent pixels.
cDIBSection visible_picture(const std::filesystem::path& file, bool& ink_instead_of_nothing) {
    const std::vector<std::uint8_t> bytes = read_file_bytes(file);
    auto [picture, transparency] = open_visibly(
        [&](Transparency wanted) { return decode_picture(bytes, wanted); }, is_not_blank);
    ink_instead_of_nothing = transparency == Transparency::Ink;
    return std::move(picture);
}

// Empty for a picture without pixels, which is refused without a message.
cDIBSection picture_of_any_size(const std::filesystem::path& file, bool& ink_instead_of_nothing) {
    try {
        return visible_picture(file, ink_instead_of_nothing);
    } catch (const FileError& error) {
        if (error.fault() != FileFault::NoPixels) throw;
        return {};
    }
}

void remember_kind(const Reduction& reduction, const SettingsFile& settings) {
    write_setting(settings, settings::kReductionKind, static_cast<int>(reduction.kind));
    switch (reduction.kind) {
    case ReductionKind::Brightness:
        return write_setting(settings, settings::kBrightnessLimit, reduction.limit);
    case ReductionKind::Colours:
        write_setting(settings, settings::kColourLimit, reduction.limit);
        write_setting(settings, settings::kUseRed, reduction.channels.red);
        write_setting(settings, settings::kUseGreen, reduction.channels.green);
        return write_setting(settings, settings::kUseBlue, reduction.channels.blue);
    case ReductionKind::Edges:
        return write_setting(settings, settings::kEdgeLimit, reduction.limit);
    case ReductionKind::UnevenLight:
        write_setting(settings, settings::kNeighbourhoodSize, reduction.neighbourhood.size);
        return write_setting(settings, settings::kNeighbourhoodOffset,
                             reduction.neighbourhood.offset);
    }
}

// For the dialog's next start. A size of specks stays stored while they are not removed.
void remember(const Reduction& reduction, const SettingsFile& settings) {
    remember_kind(reduction, settings);
    write_setting(settings, settings::kInvertReduction, reduction.inverted);
    write_setting(settings, settings::kRemoveSpecks, reduction.largest_speck > 0);
    if (reduction.largest_speck > 0)
        write_setting(settings, settings::kLargestSpeck, reduction.largest_speck);
}

} // namespace

ImageDocument::ImageDocument(const SettingsFile& settings, ProgressObserver* observer)
    : settings_(settings) {
    m_cImage.set_observer(observer);
}

std::wstring ImageDocument::FileTitle() const {
    return m_sFileName.substr(m_sFileName.rfind(L'\\') + 1); // npos + 1 is 0
}

bool ImageDocument::load(const std::filesystem::path& file, SizeLimit limit) {
    Opening opening;
    cDIBSection picture = picture_of_any_size(file, opening.ink_instead_of_nothing);
    if (picture.empty()) return false;
    opening.width_in_file = picture.Width();
    opening.height_in_file = picture.Height();
    if (limit == SizeLimit::Reduce && !Render2(picture)) throw std::bad_alloc();
    opening.reduced =
        picture.Width() != opening.width_in_file || picture.Height() != opening.height_in_file;
    cDIBSection work = created(picture.Width(), picture.Height());
    // Nothing throws from here on.
    m_cDIB = std::move(picture);
    m_cDIBWork = std::move(work);
    m_cDIBUndo.ClearUp();
    opening_ = opening;
    m_bUndoEnable = false;
    m_bDirty = false;
    return true;
}

std::wstring ImageDocument::proposed_name() const {
    const std::size_t dot = m_sFileName.rfind(L'.');
    const bool counts = dot != std::wstring::npos && dot >= 2;
    return m_sFileName.substr(0, counts ? dot : std::wstring::npos) + L".bmp";
}

void ImageDocument::save(const std::wstring& file) {
    save_bitmap(m_cDIB.view(), file);
    m_sFileName = file;
    m_bDirty = false;
}

std::wstring ImageDocument::save_question() const {
    return LoadString(IDS_IMAGE_CHANGED_1) + FileTitle() + LoadString(IDS_IMAGE_CHANGED_2) +
           L"\r\n\r\n" + LoadString(IDS_IMAGE_ASK_SAVE);
}

// Marked before the operation: one that throws half way has changed the picture.
template <class Operation> void ImageDocument::apply(Operation operation) {
    fit_work_buffer();
    take_snapshot();
    m_bDirty = true;
    operation();
}

// The old undo copy is given up only when the new one is there.
void ImageDocument::take_snapshot() {
    cDIBSection copy = m_cDIB.Copy();
    if (copy.empty() && !m_cDIB.empty()) throw std::bad_alloc();
    m_cDIBUndo = std::move(copy);
    m_bUndoEnable = true;
}

// Undo may have brought back another size. Otherwise the content stays: the second pass of
// Emphasize takes what the first one left here.
void ImageDocument::fit_work_buffer() {
    if (m_cDIBWork.Width() == m_cDIB.Width() && m_cDIBWork.Height() == m_cDIB.Height()) return;
    m_cDIBWork = created(m_cDIB.Width(), m_cDIB.Height());
}

void ImageDocument::ProcessImage(int filter_type) {
    apply([&] {
        m_cImage.set_FilterType(filter_type);
        m_cImage.ProcessImage(m_cDIB, m_cDIBWork);
    });
}

void ImageDocument::LoadCustomFilter(const cImageProcessDIB& source) {
    m_cImage.set_FilterType(kCustom);
    m_cImage.set_FilterArraySize(source.FilterArraySize());
    m_cImage.set_FilterWeight(source.FilterWeight());
    const int half = source.FilterArraySize() / 2;
    for (int y = -half; y <= half; ++y)
        for (int x = -half; x <= half; ++x)
            m_cImage.set_FilterValue(x, y, source.FilterValue(x, y));
}

void ImageDocument::Fade() {
    apply([&] { m_cImage.Fade(m_cDIB, kDarkenLevel); });
}

void ImageDocument::Lighten() {
    apply([&] { m_cImage.Lighten(m_cDIB, kLightenPercent); });
}

void ImageDocument::Colourise(float hue) {
    apply([&] { m_cImage.Colourise(m_cDIB, hue, kSaturation); });
}

void ImageDocument::GrayScale() {
    apply([&] { m_cImage.GrayScale(m_cDIB); });
}

void ImageDocument::NegativeImage() {
    apply([&] { m_cImage.NegativeImage(m_cDIB); });
}

void ImageDocument::AddNoise(bool random, int percent) {
    apply([&] { m_cImage.AddNoise(m_cDIB, percent, random); });
}

void ImageDocument::Steinberg() {
    apply([&] { m_cImage.Steinberg(m_cDIB, m_cDIBWork); });
}

void ImageDocument::ApplyPalette(const std::filesystem::path& palette_file) {
    const cPalette palette = read_palette(palette_file);
    apply([&] { m_cImage.ApplyPalette(m_cDIB, m_cDIBWork, palette); });
}

void ImageDocument::Resample(int new_width, int new_height) {
    if (new_width != ImageWidth() || new_height != ImageHeight()) {
        cDIBSection result = resampled(m_cDIB, new_width, new_height);
        cDIBSection work = created(new_width, new_height);
        m_cDIBUndo = std::exchange(m_cDIB, std::move(result));
        m_cDIBWork = std::move(work);
        m_bUndoEnable = true;
    }
    m_bDirty = true;
}

cDIBSection ImageDocument::part(const PixelRect& part) const {
    cDIBSection copy;
    if (copy.Create(part.width, part.height)) kelvane::Crop(m_cDIB.view(), part, copy.view());
    return copy;
}

void ImageDocument::Crop(const PixelRect& part) {
    apply([&] { expect_memory(m_cImage.Crop(m_cDIB, part)); });
}

bool ImageDocument::CropToDrawing() {
    const auto drawing = m_cImage.DarkBounds(m_cDIB);
    if (drawing) Crop(*drawing);
    return drawing.has_value();
}

void ImageDocument::Mirror() {
    apply([&] { m_cImage.Mirror(m_cDIB); });
}

void ImageDocument::Flip() {
    apply([&] { m_cImage.Flip(m_cDIB); });
}

void ImageDocument::RotateRight() {
    apply([&] { expect_memory(m_cImage.RotateRight(m_cDIB)); });
}

void ImageDocument::RotateLeft() {
    apply([&] { expect_memory(m_cImage.RotateLeft(m_cDIB)); });
}

void ImageDocument::Reduce(const Reduction& reduction) {
    if (reduction.has_limit() && reduction.limit == 0) return;
    remember(reduction, settings_);
    apply([&] { m_cImage.Reduce(m_cDIB, reduction); });
}

void ImageDocument::Undo() {
    if (m_bUndoEnable) std::swap(m_cDIB, m_cDIBUndo);
}

void ImageDocument::Combine(const cDIBSection& first, const cDIBSection& second, int width,
                            int height, const Combination& combination) {
    cDIBSection from = resampled(first, width, height);
    cDIBSection to = resampled(second, width, height);
    m_cImage.Combine(from, to, combination);
    m_cDIB = std::move(to);
    m_cDIBWork = std::move(from);
}

ExportReport ImageDocument::Vectorize(const std::filesystem::path& script,
                                      const ExportOptions& options, bool mirrored) {
    cDIBSection copy = m_cDIB.Copy();
    if (copy.empty()) throw std::bad_alloc();
    if (mirrored) expect_memory(m_cImage.Mirror(copy));
    m_cImage.BlackAndWhite2(copy, copy, kExportLimit);
    return m_cImage.Vectorize(copy, script, options);
}

} // namespace kelvane
