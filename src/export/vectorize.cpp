#include "export/vectorize.h"

#include "export/contacts.h"
#include "export/outlines.h"
#include "export/runs.h"

namespace kelvane {
namespace {

// Linewise: each run is a shape.
void write_runs(const RunList& runs, const ExportOptions& options, ScriptWriter& writer,
                const ProgressReporter& progress) {
    Outline outline;
    for (int y = 0; y < runs.rows(); ++y) {
        for (RunIndex run = runs.row_begin(y); run < runs.row_begin(y + 1); ++run) {
            if (options.optPoly == kShapeRectangle) {
                writer.rectangle(runs[run], y);
                continue;
            }
            rectangle_outline(runs[run], y, outline);
            if (options.optPoly == kShapeWire)
                writer.wires(outline);
            else
                writer.polygon(outline);
        }
        progress.at(long{runs.row_begin(y + 1)});
    }
}

// Full autotrace: each group of joined runs is a shape, and with wires each of its holes.
void write_outlines(const RunList& runs, const ExportOptions& options, ScriptWriter& writer,
                    ProgressObserver* observer, const ProgressReporter& progress) {
    const bool wires = options.optPoly == kShapeWire;
    const ContactMap contacts = ContactMap::find(
        runs, wires ? ContactMap::Joining::kAllOverlaps : ContactMap::Joining::kWithoutRings,
        observer);
    progress.init(long{runs.size()});
    OutlineTracer tracer(runs, contacts);
    Outline outline;
    while (tracer.next(outline)) {
        if (wires)
            writer.wires(outline);
        else
            writer.polygon(outline);
        progress.at(long{tracer.position()});
    }
}

} // namespace

ExportReport Vectorize(ConstImageView image, const std::filesystem::path& FileName,
                       const ExportOptions& options, ProgressObserver* observer) {
    const ProgressReporter progress(observer);
    const RunList runs = RunList::extract(image, observer);
    SafeFile file(FileName);
    ScriptWriter writer(file, options, image.width, image.height);
    if (options.exp && options.optPoly != kShapeRectangle) {
        write_outlines(runs, options, writer, observer, progress);
    } else {
        progress.init(long{runs.size()});
        write_runs(runs, options, writer, progress);
    }
    writer.finish();

    ExportReport report;
    report.dark_pixels = runs.dark_pixels();
    report.runs = runs.size();
    report.script = writer.counts();
    report.RangeOVL = writer.out_of_range();
    progress.complete();
    return report;
}

} // namespace kelvane
