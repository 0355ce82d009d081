#include "velmora/platform/toolkit/layout_places.h"

#include <algorithm>
#include <utility>

#include "velmora/platform/toolkit/effective_state.h"

namespace velmora::toolkit {

namespace {

using Part = LayoutPlan::Kind;

/// Where a part of this size stands in its cell.
Area aligned(const Area& cell, Alignment alignment, const Needs& needs, bool fillsWidth, bool fillsHeight) {
    const bool left = alignment == Alignment::leftTop || alignment == Alignment::leftCentre;
    const bool top = alignment == Alignment::top || alignment == Alignment::leftTop;
    const bool wide = !left && fillsWidth;
    const bool high = alignment == Alignment::fill && fillsHeight;
    const int width = wide ? cell.width : std::min(cell.width, needs.width.natural);
    const int height = high ? cell.height : std::min(cell.height, needs.height.natural);
    return {
        .left = cell.left, .top = cell.top + (top ? 0 : (cell.height - height) / 2), .width = width, .height = height};
}

}  // namespace

// --- Nodes ----------------------------------------------------------------------------------------------------

class LayoutPlaces::Node {
  public:
    Node() = default;
    virtual ~Node() = default;
    Node(const Node&) = delete;
    Node& operator=(const Node&) = delete;

    const Needs& needs() const { return needs_; }
    bool isEmpty() const { return empty_; }

    virtual void measure() = 0;
    /// `alignment` in its cell; boxes and tables always fill theirs.
    virtual void place(const Area& cell, Alignment alignment, bool shown) = 0;

  protected:
    Needs needs_;
    bool empty_ = true;
};

/// A part alone, or nothing.
class LayoutPlaces::Leaf : public Node {
  public:
    explicit Leaf(PlacedPart* part) : part_(part) {}

    void measure() override {
        empty_ = part_ == nullptr || !part_->takesRoom();
        needs_ = part_ != nullptr ? part_->needs() : Needs{};
    }
    void place(const Area& cell, Alignment alignment, bool shown) override {
        if (part_ != nullptr) {
            part_->place(aligned(cell, alignment, needs_, part_->fillsWidth(), part_->fillsHeight()), shown);
        }
    }

  private:
    PlacedPart* part_;
};

/// A node as a cell of a box or table.
struct LayoutCell {
    int stretch = 0;
    Alignment alignment = Alignment::fill;
    int row = 0;
    int column = 0;
    int columnSpan = 1;
    bool indented = false;
};

/// Parts side by side or one below the other.
class LayoutPlaces::Row : public Node {
  public:
    Row(const LayoutPlan& plan, const Distances& distances)
        : horizontal_(plan.horizontal), spacing_(plan.spacing), distances_(distances) {}

    void add(std::unique_ptr<Node> node, const PlanCell& cell) {
        cells_.emplace_back(LayoutCell{.stretch = cell.stretch, .alignment = cell.alignment}, std::move(node));
    }

    void measure() override {
        tracks_.clear();
        empty_ = true;
        Need across;
        for (const auto& [cell, node] : cells_) {
            node->measure();
            empty_ = empty_ && node->isEmpty();
            Track track{.stretch = cell.stretch, .empty = node->isEmpty()};
            if (!track.empty) {
                track.need = horizontal_ ? node->needs().width : node->needs().height;
                across = larger(across, horizontal_ ? node->needs().height : node->needs().width);
            } else if (!isSpace(*node)) {
                track.stretch = 0;
            }
            tracks_.push_back(track);
        }
        const Need along = totalOf(tracks_, distances_.pixels(spacing_));
        needs_ = horizontal_ ? Needs{.width = along, .height = across} : Needs{.width = across, .height = along};
    }

    void place(const Area& area, Alignment, bool shown) override {
        const int spacing = distances_.pixels(spacing_);
        const std::vector<int> sizes = shareOut(tracks_, horizontal_ ? area.width : area.height, spacing);
        int at = horizontal_ ? area.left : area.top;
        bool first = true;
        for (std::size_t i = 0; i < cells_.size(); ++i) {
            if (!tracks_[i].empty) {
                at += first ? 0 : spacing;
                first = false;
            }
            const Area cell = horizontal_ ? Area{.left = at, .top = area.top, .width = sizes[i], .height = area.height}
                                          : Area{.left = area.left, .top = at, .width = area.width, .height = sizes[i]};
            cells_[i].second->place(cell, cells_[i].first.alignment, shown);
            at += sizes[i];
        }
    }

  private:
    /// A space stretches although it is empty; what is hidden does not.
    static bool isSpace(const Node& node) {
        const auto* leaf = dynamic_cast<const Leaf*>(&node);
        return leaf != nullptr && leaf->needs().width.natural == 0 && leaf->needs().height.natural == 0;
    }

    bool horizontal_;
    Spacing spacing_;
    const Distances& distances_;
    std::vector<std::pair<LayoutCell, std::unique_ptr<Node>>> cells_;
    std::vector<Track> tracks_;
};

/// Parts in rows and columns.
class LayoutPlaces::Table : public Node {
  public:
    Table(const LayoutPlan& plan, const Distances& distances)
        : rowStretch_(plan.rowStretch),
          columnStretch_(plan.columnStretch),
          spacing_(plan.spacing),
          distances_(distances) {}

    void add(std::unique_ptr<Node> node, const PlanCell& cell) {
        cells_.emplace_back(LayoutCell{.alignment = cell.alignment,
                                       .row = cell.row,
                                       .column = cell.column,
                                       .columnSpan = cell.columnSpan,
                                       .indented = cell.indented},
                            std::move(node));
    }

    void measure() override {
        rows_ = tracksOf(rowStretch_);
        columns_ = tracksOf(columnStretch_);
        for (const auto& [cell, node] : cells_) {
            node->measure();
            grow(rows_, cell.row);
            grow(columns_, cell.column + cell.columnSpan - 1);
        }
        empty_ = std::ranges::all_of(cells_, [](const auto& cell) { return cell.second->isEmpty(); });
        for (const auto& [cell, node] : cells_) {
            if (!node->isEmpty()) {
                take(rows_, cell.row, node->needs().height);
                if (cell.columnSpan == 1) {
                    take(columns_, cell.column, widthOf(cell, *node));
                }
            }
        }
        for (const auto& [cell, node] : cells_) {
            if (!node->isEmpty() && cell.columnSpan > 1) {
                const auto first = static_cast<std::size_t>(cell.column);
                widen(columns_, first, first + static_cast<std::size_t>(cell.columnSpan), widthOf(cell, *node),
                      across());
            }
        }
        // What is hidden does not stretch; the room left over does.
        for (const auto& [cell, node] : cells_) {
            Track& row = rows_[static_cast<std::size_t>(cell.row)];
            row.stretch = row.empty ? 0 : row.stretch;
        }
        needs_ = {.width = totalOf(columns_, across()), .height = totalOf(rows_, distances_.pixels(spacing_))};
    }

    void place(const Area& area, Alignment, bool shown) override {
        const std::vector<std::pair<int, int>> x = spansOf(columns_, area.left, area.width, across());
        const std::vector<std::pair<int, int>> y = spansOf(rows_, area.top, area.height, distances_.pixels(spacing_));
        for (const auto& [cell, node] : cells_) {
            const auto& [left, width] = x[static_cast<std::size_t>(cell.column)];
            const auto& [lastLeft, lastWidth] = x[static_cast<std::size_t>(cell.column + cell.columnSpan - 1)];
            const auto& [top, height] = y[static_cast<std::size_t>(cell.row)];
            node->place({.left = left + indentOf(cell),
                         .top = top,
                         .width = std::max(lastLeft + lastWidth - left - indentOf(cell), 0),
                         .height = height},
                        cell.alignment, shown);
        }
    }

  private:
    int across() const { return distances_.pixels(Spacing::parts); }

    static std::vector<Track> tracksOf(const std::vector<int>& stretches) {
        std::vector<Track> tracks;
        tracks.reserve(stretches.size());
        for (const int stretch : stretches) {
            tracks.push_back({.stretch = stretch});
        }
        return tracks;
    }
    static void grow(std::vector<Track>& tracks, int last) {
        tracks.resize(std::max(tracks.size(), static_cast<std::size_t>(last) + 1));
    }
    static void take(std::vector<Track>& tracks, int at, Need need) {
        Track& track = tracks[static_cast<std::size_t>(at)];
        track.need = larger(track.need, need);
        track.empty = false;
    }
    int indentOf(const LayoutCell& cell) const { return cell.indented ? across() : 0; }
    Need widthOf(const LayoutCell& cell, const Node& node) const {
        const Need width = node.needs().width;
        return {.least = width.least + indentOf(cell), .natural = width.natural + indentOf(cell)};
    }
    /// Start and size of each track.
    static std::vector<std::pair<int, int>> spansOf(const std::vector<Track>& tracks, int from, int length,
                                                    int spacing) {
        const std::vector<int> sizes = shareOut(tracks, length, spacing);
        std::vector<std::pair<int, int>> spans;
        bool first = true;
        for (std::size_t i = 0; i < tracks.size(); ++i) {
            if (!tracks[i].empty) {
                from += first ? 0 : spacing;
                first = false;
            }
            spans.emplace_back(from, sizes[i]);
            from += sizes[i];
        }
        return spans;
    }

    std::vector<int> rowStretch_;
    std::vector<int> columnStretch_;
    Spacing spacing_;
    const Distances& distances_;
    std::vector<std::pair<LayoutCell, std::unique_ptr<Node>>> cells_;
    std::vector<Track> rows_;
    std::vector<Track> columns_;
};

/// Pages that share one place: nothing moves when they take turns. It is given back only where the layout says so,
/// while no page is shown.
class LayoutPlaces::Turns : public Node {
  public:
    Turns(const screen::Layout& node, const Distances& distances) : node_(node), distances_(distances) {}

    void add(std::unique_ptr<Node> page, bool indented) { pages_.emplace_back(indented, std::move(page)); }

    void measure() override {
        needs_ = {};
        empty_ = node_.collapses && shownTurn(node_) == pages_.size();
        for (const auto& [indented, page] : pages_) {
            const int indent = indented ? distances_.pixels(Spacing::parts) : 0;
            page->measure();
            const Need width = page->needs().width;
            needs_.width = larger(needs_.width, {.least = width.least + indent, .natural = width.natural + indent});
            needs_.height = larger(needs_.height, page->needs().height);
        }
    }
    void place(const Area& cell, Alignment alignment, bool shown) override {
        const Area area = aligned(cell, alignment, needs_, true, true);
        const std::size_t turn = shownTurn(node_);
        for (std::size_t i = 0; i < pages_.size(); ++i) {
            const auto& [indented, page] = pages_[i];
            const int indent = indented ? distances_.pixels(Spacing::parts) : 0;
            page->place({.left = area.left + indent,
                         .top = area.top,
                         .width = std::max(area.width - indent, 0),
                         .height = area.height},
                        Alignment::fill, shown && i == turn);
        }
    }

  private:
    const screen::Layout& node_;
    const Distances& distances_;
    std::vector<std::pair<bool, std::unique_ptr<Node>>> pages_;
};

/// A frame around one node or none, with another one at the right of its title or none.
class LayoutPlaces::Group : public Node {
  public:
    Group(const screen::Layout& node, PlacedPart& frame, const Distances& distances)
        : node_(node), frame_(frame), distances_(distances) {}

    /// The first is what stands in the frame, the second what stands in its title.
    void add(std::unique_ptr<Node> node) { (inner_ == nullptr ? inner_ : title_) = std::move(node); }

    void measure() override {
        empty_ = !frame_.takesRoom();
        needs_ = frame_.needs();
        if (title_ != nullptr) {
            title_->measure();
            const auto beside = [](Need need, Need other, int gap) {
                return Need{.least = need.least + gap + other.least, .natural = need.natural + gap + other.natural};
            };
            needs_.width = beside(needs_.width, title_->needs().width, distances_.pixels(Spacing::groups));
        }
        const GroupEdges edges = edgesHere();
        if (inner_ != nullptr) {
            inner_->measure();
            const auto around = [](Need inner, int by) {
                return Need{.least = inner.least + by, .natural = inner.natural + by};
            };
            needs_.width = larger(needs_.width, around(inner_->needs().width, edges.left + edges.right));
            needs_.height = larger(needs_.height, around(inner_->needs().height, edges.top + edges.bottom));
        }
    }
    void place(const Area& cell, Alignment alignment, bool shown) override {
        const Area area = aligned(cell, alignment, needs_, true, true);
        const bool open = frame_.place(area, shown);
        if (title_ != nullptr) {
            const Needs& needs = title_->needs();
            const int width = std::min(needs.width.natural, area.width);
            title_->place(
                {.left = area.right() - width, .top = area.top, .width = width, .height = needs.height.natural},
                Alignment::fill, open);
        }
        if (inner_ != nullptr) {
            const GroupEdges edges = edgesHere();
            inner_->place({.left = area.left + edges.left,
                           .top = area.top + edges.top,
                           .width = std::max(area.width - edges.left - edges.right, 0),
                           .height = std::max(area.height - edges.top - edges.bottom, 0)},
                          Alignment::fill, open);
        }
    }

  private:
    /// Below what stands in the title, which may be higher than the title itself.
    GroupEdges edgesHere() const {
        GroupEdges edges = distances_.edgesOf(node_);
        if (title_ != nullptr) {
            edges.top = std::max(edges.top, title_->needs().height.natural + distances_.pixels(Spacing::lines));
        }
        return edges;
    }

    const screen::Layout& node_;
    PlacedPart& frame_;
    const Distances& distances_;
    std::unique_ptr<Node> inner_;
    std::unique_ptr<Node> title_;
};

// --- Construction ---------------------------------------------------------------------------------------------

class LayoutPlaces::Builder {
  public:
    Builder(PartSource& source, const Distances& distances) : source_(source), distances_(distances) {}

    std::unique_ptr<Node> make(const LayoutPlan& plan) {
        switch (plan.kind) {
            case Part::control:
                return std::make_unique<Leaf>(source_.control(*plan.node));
            case Part::caption:
                return std::make_unique<Leaf>(source_.caption(*plan.node, plan.shownByTurn));
            case Part::unit:
                return std::make_unique<Leaf>(source_.unit(*plan.node));
            case Part::box:
                return filled(std::make_unique<Row>(plan, distances_), plan);
            case Part::grid:
                return filled(std::make_unique<Table>(plan, distances_), plan);
            case Part::turns:
                return makeTurns(plan);
            case Part::group:
                return makeGroup(plan);
            case Part::nothing:
            case Part::space:
                break;
        }
        return std::make_unique<Leaf>(nullptr);
    }

  private:
    template <typename Container>
    std::unique_ptr<Node> filled(std::unique_ptr<Container> container, const LayoutPlan& plan) {
        for (const PlanCell& cell : plan.cells) {
            container->add(make(cell.part), cell);
        }
        return container;
    }
    std::unique_ptr<Node> makeTurns(const LayoutPlan& plan) {
        auto turns = std::make_unique<Turns>(*plan.node, distances_);
        for (const PlanCell& page : plan.cells) {
            turns->add(make(page.part), page.indented);
        }
        return turns;
    }
    std::unique_ptr<Node> makeGroup(const LayoutPlan& plan) {
        auto group = std::make_unique<Group>(*plan.node, source_.openGroup(*plan.node, plan.shownByTurn), distances_);
        for (const PlanCell& cell : plan.cells) {
            group->add(make(cell.part));
        }
        source_.closeGroup();
        return group;
    }

    PartSource& source_;
    const Distances& distances_;
};

LayoutPlaces::LayoutPlaces(const LayoutPlan& plan, PartSource& source, const Distances& distances)
    : root_(Builder(source, distances).make(plan)) {}

LayoutPlaces::~LayoutPlaces() = default;

Needs LayoutPlaces::measure() {
    root_->measure();
    return root_->needs();
}

void LayoutPlaces::place(const Area& area) {
    root_->place(area, Alignment::fill, true);
}

}  // namespace velmora::toolkit
