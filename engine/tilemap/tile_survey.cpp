#include "engine/tilemap/tile_survey.hpp"

namespace tessora {

namespace {

constexpr std::size_t kFewContents = 256;
constexpr std::size_t kMostContents = 1 << 16;

bool is_count(const TiledMap& map, const Slot& slot) {
  double ignored = 0.0;
  return map.holds_number(slot, ignored) && map.peek(slot).is_plain_integer();
}

}  // namespace

bool TileSurvey::count_kinds() {
  std::vector<Py_ssize_t>& last = by_content_;
  last.assign(kFewContents, -1);
  // Kept apart, so that the loop need not look them up after every cell.
  Py_ssize_t* places = last.data();
  std::size_t count = last.size();
  const auto visit = [&](Py_ssize_t index, int content) {
    // Place 0 is for all empty cells.
    const std::size_t place = content < 0 ? 0 : static_cast<std::size_t>(content) + 1;
    if (place >= count) [[unlikely]] {
      if (place >= kMostContents) return false;
      last.resize(2 * place, -1);
      places = last.data();
      count = last.size();
    }
    places[place] = index;
    return true;
  };
  return host::each_small_integer(tiles_, rows_ * columns_, visit);
}

std::optional<TileSurvey> TileSurvey::of(TiledMap& map) {
  if (!map.peek(map.Tile_Array) || !map.peek(map.sceneInstance) || !is_count(map, map.Tile_Row) ||
      !is_count(map, map.Tile_Cow)) {
    return std::nullopt;
  }
  TileSurvey survey;
  survey.tiles_ = map.read(map.Tile_Array);
  survey.columns_ = map.column_count();
  survey.rows_ = map.row_count();
  // These products do not overflow: both have less than 30 bits.
  Ref scene = map.read(map.sceneInstance);
  const auto lookup = host::PlainLookup::find(scene, "GetLayerResNode"_name);
  if (!lookup || !survey.count_kinds()) return std::nullopt;
  for (std::size_t place = 1; place < survey.by_content_.size(); ++place) {
    Py_ssize_t& entry = survey.by_content_[place];
    if (entry < 0) continue;
    Ref node = lookup->at(static_cast<Py_ssize_t>(place) - 1);
    if (!node) return std::nullopt;
    survey.kinds_.push_back({node, entry});
    entry = static_cast<Py_ssize_t>(survey.kinds_.size()) - 1;
  }
  return survey;
}

const Ref& TileSurvey::node_at(Py_ssize_t index) const {
  static const Ref none;
  const std::optional<std::int64_t> content = Number(tiles_.item(index)).whole();
  if (!content || *content < 0) return none;
  const Py_ssize_t kind = by_content_[static_cast<std::size_t>(*content) + 1];
  return kinds_[static_cast<std::size_t>(kind)].node;
}

}  // namespace tessora
