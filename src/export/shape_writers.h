// Outlines as the commands of a script: polygons and wires.
#pragma once

#include "export/outlines.h"
#include "export/script_text.h"

#include <cstdint>
#include <vector>

namespace kelvane {

/// Writes each outline as a polygon. Edges with the bridge mark are lowered by half a pixel; the
/// strips that this leaves out follow after all outlines.
class PolygonWriter final : public OutlineReceiver {
  public:
    explicit PolygonWriter(ScriptText& text) : text_(text) {}

    void begin_outline() override;
    void add_vertices(std::span<const OutlineVertex> vertices) override;
    void end_outline() override;
    /// The polygons that fill the strips; last of all.
    void write_strips();

    /// Polygons without the strips.
    std::uint64_t polygons() const { return polygons_; }
    std::uint64_t strips() const { return strips_.size(); }

  private:
    /// The half pixel under grid line `y`, from column to column.
    struct Strip {
        std::int32_t right;
        std::int32_t left;
        std::int32_t y;
    };
    void add_vertex(const OutlineVertex& vertex);
    void write_strip(const Strip& strip);

    ScriptText& text_;
    ScriptPoint first_{};
    bool at_first_ = true;
    bool bridging_ = false; // the last vertex began a bridge
    std::vector<Strip> strips_;
    std::uint64_t polygons_ = 0;
};

/// Writes each outline as a chain of wires. Bridge marks are not heeded.
class WireWriter final : public OutlineReceiver {
  public:
    explicit WireWriter(ScriptText& text) : text_(text) {}

    void begin_outline() override;
    void add_vertices(std::span<const OutlineVertex> vertices) override;
    void end_outline() override;

    /// Single wires, one an edge.
    std::uint64_t wires() const { return wires_; }

  private:
    void wire_to(const ScriptPoint& to);

    ScriptText& text_;
    ScriptPoint first_{};
    ScriptPoint last_{};
    std::uint64_t edges_ = 0; // of this outline so far
    bool at_first_ = true;
    std::uint64_t wires_ = 0;
};

/// Writes a run of row `y` as a rectangle.
void write_rectangle(ScriptText& text, const Run& run, int y);

} // namespace kelvane
