// Drawing the cells of a map: each one's node is put in its place and drawn.
//
// The scene's look-up is asked for every occupied cell in order. Where it is known to run no
// script, nobody can tell whether a cell was visited whose node draws nothing: then the cells in
// sight are visited, and of every node the last one, in whose place the walk leaves it.
#include <algorithm>
#include <deque>
#include <limits>
#include <vector>

#include "engine/image/plain_picture.hpp"
#include "engine/tilemap/tile_survey.hpp"
#include "engine/tilemap/visible_cells.hpp"

namespace tessora {

namespace {

// A node that is a plain picture, and the cell in which the walk has passed it out of sight: only
// the last of these counts, as nothing else can be told of them afterwards.
struct KnownPicture {
  std::unique_ptr<PlainPicture> look;
  Py_ssize_t column = 0;
  Py_ssize_t row = 0;
  bool waits = false;
};

// What was found out about the nodes of tiles, by their index.
class PictureTable {
 public:
  struct Entry {
    KnownPicture* picture = nullptr;
    int refusals = 0;
  };

  Entry& of(Value content) {
    constexpr double kMost = 1 << 12;
    const double index = Number(content).plain().value_or(kMost);
    if (!(index >= 0.0 && index < kMost)) return others_;
    const auto place = static_cast<std::size_t>(index);
    if (place >= entries_.size()) entries_.resize(place + 1);
    return entries_[place];
  }
  // Several indexes may show one node.
  KnownPicture* picture_of(Value node) {
    for (KnownPicture& known : pictures_) {
      if (known.look->is_of(node)) return &known;
    }
    return nullptr;
  }
  KnownPicture* add(std::unique_ptr<PlainPicture> look) {
    return &pictures_.emplace_back(KnownPicture{std::move(look)});
  }
  std::deque<KnownPicture>& all() { return pictures_; }

 private:
  std::vector<Entry> entries_;
  Entry others_;
  std::deque<KnownPicture> pictures_;
};
// After so many looks in vain, a tile's node is not looked at again during the walk.
constexpr int kMostRefusals = 4;

class CellDrawer {
 public:
  CellDrawer(TiledMap& map, Value screen, Value offset_x, Value offset_y, Value scale)
      : map_(map), screen_(screen), scale_(scale), rectangular_(map.is_rectangular()) {
    const Number left = map.read(map.x) * Number(scale) + Number(offset_x);
    offset_x_ = left.object();
    const Number top = map.read(map.y) * Number(scale) + Number(offset_y);
    offset_y_ = top.object();
    wide_ = map.read(map.Tile_Width);
    high_ = map.read(map.Tile_Height);
    if (!rectangular_) {
      wide_ = wide_ * Number(0.5);
      high_ = high_ * Number(0.5);
    }
    plain_places_ = wide_.is_plain() && high_.is_plain();
    plain_wide_ = wide_.plain().value_or(0.0);
    plain_high_ = high_.plain().value_or(0.0);
    view_ = PlainView::of(screen, offset_x_, offset_y_, scale);
  }

  // The whole walk, from a cell on.
  void draw_all(Py_ssize_t from) {
    const auto visit = [&](Py_ssize_t column, Py_ssize_t row, Py_ssize_t, Value content) {
      Ref node = map_.resource(content);
      if (!node.is_none()) draw(column, row, content, node);
    };
    map_.each_tile(visit, from);
  }

  // The walk without what nobody can tell. False when nothing was drawn.
  bool draw_seen();

  // Leaves the pictures where the walk has passed them last.
  void settle() {
    for (KnownPicture& known : pictures_.all()) put(known);
  }
  // The same when the walk has failed: what runs no script.
  void settle_quietly() {
    for (KnownPicture& known : pictures_.all()) {
      if (known.look->is_current()) put(known);
    }
  }

 private:
  // Where a cell lies on the map, as scripts see it: numbers of theirs keep their kind.
  std::pair<Ref, Ref> place_of(Py_ssize_t column, Py_ssize_t row) {
    if (!rectangular_) {
      const Number left = Number(row + column) * wide_;
      const Number top = Number(row - column) * high_ - high_;
      return {left.object(), top.object()};
    }
    if (row != row_) top_ = (Number(row) * high_).object();
    row_ = row;
    constexpr std::size_t kMostKept = 4096;
    const auto index = static_cast<std::size_t>(column);
    if (index >= kMostKept) return {(Number(column) * wide_).object(), top_};
    if (index >= lefts_.size()) lefts_.resize(index + 1);
    if (!lefts_[index]) lefts_[index] = (Number(column) * wide_).object();
    return {lefts_[index], top_};
  }
  // The same for the machine.
  [[nodiscard]] render::Point corner_of(Py_ssize_t column, Py_ssize_t row) const {
    if (rectangular_)
      return {static_cast<double>(column) * plain_wide_, static_cast<double>(row) * plain_high_};
    return {static_cast<double>(row + column) * plain_wide_,
            static_cast<double>(row - column) * plain_high_ - plain_high_};
  }

  void draw(Py_ssize_t column, Py_ssize_t row, Value content, Value node) {
    KnownPicture* known = plain_places_ ? plain(content, node) : nullptr;
    if (known != nullptr) {
      known->column = column;
      known->row = row;
      known->waits = true;
      const bool seen = known->look->shows(*view_, corner_of(column, row));
      if (!seen && !known->look->has_scene()) return;
      put(*known);
      // A scene may do anything to the node.
      return seen ? known->look->draw(screen_) : known->look->tell_scene();
    }
    if (!node.is_set()) return;
    const auto [left, top] = place_of(column, row);
    message::SetXY(node, left, top);
    message::draw(node, screen_, offset_x_, offset_y_, scale_);
  }

  void put(KnownPicture& known) {
    if (!std::exchange(known.waits, false)) return;
    const auto [left, top] = place_of(known.column, known.row);
    known.look->put(*view_, left, top, corner_of(known.column, known.row));
  }

  // The node as a plain picture, or null.
  KnownPicture* plain(Value content, Value node) {
    if (!look_at_target()) return nullptr;
    PictureTable::Entry& entry = pictures_.of(content);
    if (entry.picture != nullptr && entry.picture->look->is_of(node) &&
        entry.picture->look->is_current()) {
      return entry.picture;
    }
    return find_plain(entry, node);
  }

  KnownPicture* find_plain(PictureTable::Entry& entry, Value node) {
    KnownPicture* known = pictures_.picture_of(node);
    entry.picture = nullptr;
    if (known != nullptr && !known->look->is_current()) {
      // What it was is what it was passed as.
      put(*known);
    } else if (known != nullptr) {
      return entry.picture = known;
    }
    if (entry.refusals > kMostRefusals) return nullptr;
    std::unique_ptr<PlainPicture> look = PlainPicture::of(node, view_->scale);
    if (!look) {
      ++entry.refusals;
      return nullptr;
    }
    if (known == nullptr) return entry.picture = pictures_.add(std::move(look));
    known->look = std::move(look);
    return entry.picture = known;
  }

  // A script may have set another clip, or quit the display.
  bool look_at_target() {
    if (viewed_ != host::clocks.script) {
      const std::optional<render::PixelBox> clip = render::quick_clip(screen_);
      if (view_ && clip) view_->clip = *clip;
      if (!clip) return false;
      viewed_ = host::clocks.script;
    }
    return view_.has_value();
  }

  TiledMap& map_;
  Ref screen_, scale_, offset_x_, offset_y_;
  bool rectangular_;
  Number wide_ = 0;
  Number high_ = 0;
  bool plain_places_ = false;
  double plain_wide_ = 0.0;
  double plain_high_ = 0.0;
  std::vector<Ref> lefts_;
  Ref top_;
  Py_ssize_t row_ = -1;
  std::optional<PlainView> view_;
  std::uint64_t viewed_ = 0;
  PictureTable pictures_;
};

// How far pictures reach from their places.
struct Reach {
  Bounds bounds;
  std::vector<Py_ssize_t> last_cells;
};

std::optional<Reach> reach_of(const TileSurvey& survey, double scale) {
  constexpr double kInfinite = std::numeric_limits<double>::infinity();
  Reach reach{{kInfinite, kInfinite, -kInfinite, -kInfinite}, {}};
  for (const TileSurvey::Kind& kind : survey.kinds()) {
    if (kind.node.is_none()) continue;
    const auto picture = PlainPicture::of(kind.node, scale);
    if (!picture || picture->has_scene()) return std::nullopt;
    const render::Box box = picture->reach();
    Bounds& all = reach.bounds;
    all = {std::min(all.left, box.left), std::min(all.top, box.top),
           std::max(all.right, box.left + box.width), std::max(all.bottom, box.top + box.height)};
    reach.last_cells.push_back(kind.last_cell);
  }
  std::ranges::sort(reach.last_cells);
  return reach;
}

bool CellDrawer::draw_seen() {
  const std::optional<TileSurvey> survey = TileSurvey::of(map_);
  double wide = 0.0;
  double high = 0.0;
  if (!survey || !map_.holds_number(map_.Tile_Width, wide) ||
      !map_.holds_number(map_.Tile_Height, high)) {
    return false;
  }
  if (!plain_places_ || !look_at_target()) return false;
  const std::optional<Reach> reach = reach_of(*survey, view_->scale);
  if (!reach) return false;
  const render::PixelBox& clip = view_->clip;
  const Bounds& around = reach->bounds;
  const Bounds bounds{clip.left - around.right, clip.top - around.bottom, clip.right - around.left,
                      clip.bottom - around.top};
  const Lattice lattice = Lattice::of(rectangular_, wide, high)
                              .drawn(view_->scale, view_->scale, view_->offset_x, view_->offset_y);

  const std::uint64_t tick = host::clocks.script;
  const Py_ssize_t columns = survey->columns();
  auto next_last = reach->last_cells.begin();
  // False once a script has run, which may have changed anything.
  auto visit = [&](Py_ssize_t index) {
    const Ref& node = survey->node_at(index);
    if (node && !node.is_none())
      draw(index % columns, index / columns, survey->content_at(index), node);
    if (host::clocks.script == tick) return true;
    draw_all(index + 1);
    return false;
  };
  auto visit_last_before = [&](Py_ssize_t index) {
    for (; next_last != reach->last_cells.end() && *next_last < index; ++next_last) {
      if (!visit(*next_last)) return false;
    }
    if (next_last != reach->last_cells.end() && *next_last == index) ++next_last;
    return true;
  };
  for (Py_ssize_t row = 0; row < survey->rows(); ++row) {
    const Range seen = lattice.columns_between(bounds, row, columns);
    for (Py_ssize_t column = seen.first; column < seen.end; ++column) {
      const Py_ssize_t index = row * columns + column;
      if (!visit_last_before(index) || !visit(index)) return true;
    }
  }
  visit_last_before(std::numeric_limits<Py_ssize_t>::max());
  return true;
}

}  // namespace

void TiledMap::draw_cells(Value screen, Value offset_x, Value offset_y, Value scale) {
  CellDrawer drawer(*this, screen, offset_x, offset_y, scale);
  try {
    if (!drawer.draw_seen()) drawer.draw_all(0);
  } catch (...) {
    drawer.settle_quietly();
    throw;
  }
  drawer.settle();
}

}  // namespace tessora
