#include "export/vectorize.h"

#include "export/contacts.h"
#include "export/outline_raster.h"
#include "export/outline_smoother.h"
#include "export/outlines.h"
#include "export/runs.h"
#include "export/shape_writers.h"

#include <algorithm>
#include <optional>

namespace kelvane {
namespace {

// Stairs only become slopes from this tolerance on: the corners of the steepest stairs, those of 45
// degrees, are a quarter of a pixel away from their line.
constexpr std::int32_t kLeastRadius = kPixelParts / 4;
// In a picture with a longer side outlines stay as they are: products of coordinates in parts of a
// lattice step would take more than 64 bits.
constexpr int kLongestSmoothSide = 1 << 21;

// The tolerance in parts of a lattice step, or 0 when outlines are to be exact.
std::int32_t smoothing_radius(ConstImageView image, const ExportOptions& options) {
    if (!options.exp || options.optPoly == kShapeRectangle) return 0;
    if (std::max(image.width, image.height) > kLongestSmoothSide) return 0;
    constexpr double kRoundingError = 1e-9;
    const double steps = options.smooth * kPixelParts + kRoundingError;
    const auto radius = static_cast<std::int32_t>(std::clamp(steps, 0., 1. * Tube::kHalfPixel));
    return radius < kLeastRadius ? 0 : radius;
}

LinkedSides link_sides(const RunList& runs, ContactMap::Joining joining, MeetingPoints meetings,
                       ProgressObserver* observer) {
    const ProgressReporter progress(observer);
    progress.init((ContactMap::kPasses + LinkedSides::kPasses) * runs.rows());
    const ContactMap contacts = ContactMap::find(runs, joining, progress);
    return {runs, contacts, meetings, progress};
}

// Progress of the outlines. One may wind through the whole picture, so it is reported within long
// ones, too.
class OutlineProgress {
  public:
    static constexpr std::size_t kVerticesPerReport = 1 << 14;

    explicit OutlineProgress(ProgressObserver* observer) : progress_(observer) {}

    void init(int rows) const { progress_.init(rows); }
    /// The outlines that begin in the rows below `row` are complete.
    void at_row(int row) {
        if (row == row_) return;
        unreported_ = 0;
        progress_.at(row_ = row);
    }
    /// So many vertices were passed on.
    void add_vertices(std::size_t count) {
        unreported_ += count;
        if (unreported_ < kVerticesPerReport) return;
        unreported_ = 0;
        progress_.at(row_);
    }

  private:
    const ProgressReporter progress_;
    int row_ = 0;
    std::size_t unreported_ = 0;
};

// Passes outlines on in parts that are short enough for progress in between.
class ReportedOutlines final : public OutlineReceiver {
  public:
    ReportedOutlines(OutlineReceiver& receiver, OutlineProgress& progress)
        : receiver_(receiver), progress_(progress) {}

    void begin_outline() override { receiver_.begin_outline(); }
    void add_vertices(std::span<const OutlineVertex> vertices) override {
        while (!vertices.empty()) {
            const std::size_t count =
                std::min(vertices.size(), OutlineProgress::kVerticesPerReport);
            receiver_.add_vertices(vertices.first(count));
            progress_.add_vertices(count);
            vertices = vertices.subspan(count);
        }
    }
    void end_outline() override { receiver_.end_outline(); }

  private:
    OutlineReceiver& receiver_;
    OutlineProgress& progress_;
};

// Full autotrace: each group of joined runs is a shape, and with wires each of its holes.
void trace_outlines(const RunList& runs, ContactMap::Joining joining, MeetingPoints meetings,
                    OutlineReceiver& receiver, OutlineProgress& progress,
                    ProgressObserver* observer) {
    LinkedSides sides = link_sides(runs, joining, meetings, observer);
    progress.init(runs.rows());
    ReportedOutlines reported(receiver, progress);
    OutlineTracer tracer(runs, sides, reported);
    while (tracer.trace_next())
        progress.at_row(tracer.row());
}

// Linewise: each run is a shape.
template <typename WriteRun>
void for_each_run(const RunList& runs, ProgressObserver* observer, WriteRun write_run) {
    const ProgressReporter progress(observer);
    progress.init(runs.rows());
    for (int y = 0; y < runs.rows(); ++y) {
        for (RunIndex run = runs.row_begin(y); run < runs.row_begin(y + 1); ++run)
            write_run(runs[run], y);
        progress.at(y);
    }
}

// `radius` is that of smoothing, or 0.
void trace(const RunList& runs, bool autotrace, std::int32_t radius, ContactMap::Joining joining,
           OutlineReceiver& receiver, ProgressObserver* observer) {
    OutlineProgress progress(observer);
    if (radius > 0) {
        ReportedOutlines smooth(receiver, progress); // each comes in one piece
        OutlineSmoother smoother(radius, smooth);
        trace_outlines(runs, joining, MeetingPoints::Found, smoother, progress, observer);
    } else if (autotrace) {
        trace_outlines(runs, joining, MeetingPoints::NotFound, receiver, progress, observer);
    } else {
        for_each_run(runs, observer,
                     [&](const Run& run, int y) { trace_rectangle(run, y, receiver); });
    }
}

// A polygon has no holes; wires draw them as outlines of their own.
ContactMap::Joining joining_of(const ExportOptions& options) {
    return options.optPoly == kShapePolygon ? ContactMap::Joining::WithoutRings
                                            : ContactMap::Joining::AllOverlaps;
}

void write_shapes(const RunList& runs, const ExportOptions& options, std::int32_t radius,
                  ScriptText& text, ExportReport& report, ProgressObserver* observer) {
    switch (options.optPoly) {
    case kShapePolygon: {
        PolygonWriter writer(text);
        trace(runs, options.exp, radius, joining_of(options), writer, observer);
        writer.write_strips();
        report.shapes = writer.polygons();
        report.bridges = writer.strips();
        break;
    }
    case kShapeWire: {
        WireWriter writer(text);
        trace(runs, options.exp, radius, joining_of(options), writer, observer);
        report.shapes = writer.wires();
        break;
    }
    default:
        for_each_run(runs, observer, [&](const Run& run, int y) { write_rectangle(text, run, y); });
        report.shapes = runs.size();
    }
}

bool is_shape(std::int16_t kind) {
    return kind >= kShapePolygon && kind <= kShapeRectangle;
}

void write_script(const RunList& runs, SafeFile* file, ConstImageView image,
                  const ExportOptions& options, ExportReport& report, ProgressObserver* observer) {
    const std::int32_t radius = smoothing_radius(image, options);
    ScriptText text(file, options, image.width, image.height, radius > 0 ? kPixelSteps : 1);
    write_shapes(runs, options, radius, text, report, observer);
    text.finish();
    report.points = text.points();
    report.bytes = text.bytes();
    report.RangeOVL = text.out_of_range();
}

// Without a file name the script is only counted.
ExportReport export_script(ConstImageView image, const std::filesystem::path* file_name,
                           const ExportOptions& options, ProgressObserver* observer) {
    const ProgressReporter progress(observer);
    const RunList runs = RunList::extract(image, observer);
    ExportReport report;
    report.dark_pixels = runs.dark_pixels();
    report.runs = runs.size();
    if (is_shape(options.optPoly)) {
        std::optional<SafeFile> file;
        if (file_name) file.emplace(*file_name);
        write_script(runs, file ? &*file : nullptr, image, options, report, observer);
    }
    progress.complete();
    return report;
}

} // namespace

ExportReport Vectorize(ConstImageView image, const std::filesystem::path& FileName,
                       const ExportOptions& options, ProgressObserver* observer) {
    return export_script(image, &FileName, options, observer);
}

ExportReport CountExport(ConstImageView image, const ExportOptions& options,
                         ProgressObserver* observer) {
    return export_script(image, nullptr, options, observer);
}

void DrawExport(ConstImageView image, const ExportOptions& options, ImageView drawing,
                ProgressObserver* observer) {
    const std::int32_t radius = smoothing_radius(image, options);
    const int steps = radius > 0 ? kPixelSteps : 1;
    OutlineRaster raster(image.width * steps, image.height * steps, drawing.width, drawing.height,
                         steps);
    trace(RunList::extract(image, observer), options.exp, radius, joining_of(options), raster,
          observer);
    raster.draw(drawing);
}

} // namespace kelvane
