// What a document is, without the window that shows it: a picture, its undo copy, its name and
// whether it has changed.
#pragma once

#include "engine/image_process.h"
#include "export/export_options.h"
#include "image/dib_section.h"
#include "settings/settings_file.h"

#include <filesystem>
#include <string>

namespace kelvane {

/// One picture and its engine. Every operation first takes the undo copy and marks the document
/// changed, then works: an exception in the middle leaves a document that is changed and can be
/// undone. With too little memory for the copy it throws `std::bad_alloc` and leaves everything as
/// it was. Operations on an empty document do nothing useful and no harm.
class ImageDocument {
  public:
    /// `settings` receives the values of reductions; `observer` the engine's events. Both outlive
    /// the document.
    ImageDocument(const SettingsFile& settings, ProgressObserver* observer);

    const cDIBSection& picture() const { return m_cDIB; }
    int ImageWidth() const { return m_cDIB.Width(); }
    int ImageHeight() const { return m_cDIB.Height(); }
    /// The picture differs from its file.
    bool Dirty() const { return m_bDirty; }
    /// There is an undo copy. Only `load` makes it false again.
    bool undoEnable() const { return m_bUndoEnable; }

    /// The file's full path, or the name given to a picture without file.
    const std::wstring& Filename() const { return m_sFileName; }
    void Filename(const std::wstring& name) { m_sFileName = name; }
    /// What follows the name's last backslash.
    std::wstring FileTitle() const;

    /// A copy of a part, which lies inside the picture; empty without memory for it.
    cDIBSection part(const PixelRect& part) const;

    // Files.

    struct Opening {
        int width_in_file = 0; ///< in pixels, upright
        int height_in_file = 0;
        bool reduced = false; ///< to the size limit
        /// Transparent pixels were drawn as ink, because white paper would have left nothing.
        bool ink_instead_of_nothing = false;
    };

    /// How large a picture may be when it is opened.
    enum class SizeLimit {
        Reduce, ///< larger ones are reduced, see `Render2` in image/size_limit.h
        Keep
    };
    /// Takes the picture in `file`; the document is then unchanged and has no undo copy. False for
    /// a picture without pixels, which is not taken. Throws `FileError` and `std::bad_alloc`; the
    /// document then keeps what it had.
    bool load(const std::filesystem::path& file, SizeLimit limit);
    /// What the last `load` changed in the file's picture.
    const Opening& opening() const { return opening_; }
    /// What a save dialog proposes: the name with everything from its last dot on replaced by
    /// ".bmp", even when that dot belongs to a folder; a dot among the first two characters does
    /// not count.
    std::wstring proposed_name() const;
    /// Writes the picture as a bitmap and takes the file's name; no longer changed. Throws
    /// `FileError`; the document then stays changed and the file that was there stays as well.
    void save(const std::wstring& file);
    /// The question before a changed document is given up.
    std::wstring save_question() const;

    // Operations; see process/ and reduce/.

    /// Filter 1 to 15. The two passes of Emphasize (13, 14) are two operations, so the second one
    /// leaves the picture after the first as undo copy.
    void ProcessImage(int filter_type);
    /// Takes over the filter in `source`, for `ProcessImage(15)`.
    void LoadCustomFilter(const cImageProcessDIB& source);
    void Fade();
    void Lighten();
    /// `hue` in sextants, -1 to 5.
    void Colourise(float hue);
    void GrayScale();
    void NegativeImage();
    void AddNoise(bool random, int percent);
    void Steinberg();
    /// Throws `FileError` and does nothing when the palette cannot be read.
    void ApplyPalette(const std::filesystem::path& palette_file);
    /// To the same size it only marks the document changed.
    void Resample(int new_width, int new_height);
    /// Keeps a part, which lies inside the picture.
    void Crop(const PixelRect& part);
    /// Keeps the smallest part with all that an export draws. False, and nothing has happened, when
    /// there is nothing to draw.
    bool CropToDrawing();
    void Mirror();
    void Flip();
    void RotateRight();
    void RotateLeft();

    // Reductions. A limit of 0 stands for a cancelled dialog: nothing happens at all. The
    // arguments are stored in the settings.

    void Reduce(const Reduction& reduction);
    void BlackAndWhite(int limitvalue) { Reduce({ReductionKind::Brightness, limitvalue}); }
    /// A channel takes part where its argument is 1.
    void lineArt(int limitvalue, int red, int green, int blue) {
        Reduce({ReductionKind::Colours, limitvalue, {red == 1, green == 1, blue == 1}});
    }
    void edgeDetect(int limitvalue) { Reduce({ReductionKind::Edges, limitvalue}); }

    /// Swaps the picture with its undo copy: the next `Undo` takes this one back. Nothing without
    /// an undo copy. The document stays as changed as it was.
    void Undo();

    /// Fills this new document with the combination of two pictures, both brought to the size
    /// `width` x `height` first.
    void Combine(const cDIBSection& first, const cDIBSection& second, int width, int height,
                 const Combination& combination);

    /// Writes the EAGLE script of a black and white copy of the picture, which stays as it is;
    /// `mirrored`: reversed from left to right, for layers seen from below. `RangeOVL` of the
    /// result says whether a coordinate left EAGLE's range. Throws `FileError`.
    ExportReport Vectorize(const std::filesystem::path& script, const ExportOptions& options,
                           bool mirrored = false);

    /// Makes noise reproducible.
    void seed_noise(std::uint32_t seed) { m_cImage.seed_noise(seed); }

  private:
    template <class Operation> void apply(Operation operation);
    void take_snapshot();
    void fit_work_buffer();

    const SettingsFile& settings_;
    cDIBSection m_cDIB;
    cDIBSection m_cDIBWork; // scratch of the engine, as large as the picture
    cDIBSection m_cDIBUndo;
    cImageProcessDIB m_cImage;
    Opening opening_;
    bool m_bDirty = false;
    bool m_bUndoEnable = false;
    std::wstring m_sFileName;
};

} // namespace kelvane
