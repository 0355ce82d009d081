#pragma once
// The rectangles of a form's parts, for platforms without layouts of their own: the arithmetic of a layout plan.

#include <memory>
#include <vector>

#include "velmora/platform/toolkit/layout_plan.h"
#include "velmora/platform/toolkit/layout_tracks.h"

namespace velmora::toolkit {

/// A rectangle in whole pixels; y points downward.
struct Area {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    constexpr int right() const { return left + width; }
    constexpr int bottom() const { return top + height; }
    friend bool operator==(const Area&, const Area&) = default;
};

struct Needs {
    Need width = {};
    Need height = {};
};

/// A widget, or something drawn. What does not fill its area keeps its natural size there.
class PlacedPart {
  public:
    virtual ~PlacedPart() = default;
    /// For a group only its frame counts: nothing.
    virtual Needs needs() const = 0;
    virtual bool fillsWidth() const = 0;
    virtual bool fillsHeight() const = 0;
    /// False when it is hidden and its neighbours take its room.
    virtual bool takesRoom() const = 0;
    /// `shown`: whether everything around it is shown; its own state is the part's business. Returns whether it is
    /// shown now.
    virtual bool place(const Area& area, bool shown) = 0;
};

/// Distances from the edges of a group to what stands in it.
struct GroupEdges {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
};

/// What a toolkit supplies: its widgets, each created when it is first asked for, and its distances.
class PartSource {
  public:
    virtual ~PartSource() = default;
    virtual PlacedPart* control(const screen::Layout& field) = 0;
    /// nullptr for a field without a caption. `shownByTurn`: its own visibility does not matter.
    virtual PlacedPart* caption(const screen::Layout& field, bool shownByTurn) = 0;
    virtual PlacedPart* unit(const screen::Layout& field) = 0;
    /// What is asked for between the two calls stands in the group.
    virtual PlacedPart& openGroup(const screen::Layout& group, bool shownByTurn) = 0;
    virtual void closeGroup() = 0;
};

class Distances {
  public:
    virtual ~Distances() = default;
    virtual int pixels(Spacing spacing) const = 0;
    virtual GroupEdges edgesOf(const screen::Layout& group) const = 0;
};

/// The parts of a plan in their order, and the room that they need. Source and distances of the construction: the first
/// is used there only, the second must outlive this object.
class LayoutPlaces {
  public:
    LayoutPlaces(const LayoutPlan& plan, PartSource& source, const Distances& distances);
    ~LayoutPlaces();
    LayoutPlaces(const LayoutPlaces&) = delete;
    LayoutPlaces& operator=(const LayoutPlaces&) = delete;

    /// Asks all parts for their needs. Of pages that share a place the largest counts, shown or not.
    Needs measure();
    /// Gives every part its area; after `measure`.
    void place(const Area& area);

  private:
    class Node;
    class Leaf;
    class Row;
    class Table;
    class Turns;
    class Group;
    class Builder;

    std::unique_ptr<Node> root_;
};

}  // namespace velmora::toolkit
