// What the tiles of a map do as time passes: animated ones block other cells in every frame.
#include <algorithm>

#include "engine/character/character.hpp"
#include "engine/tilemap/tile_survey.hpp"

namespace tessora {

namespace {

// Whether a tile's node is animated, or may be: the walk must then ask for it.
bool may_block(const TileSurvey::Kind& kind) {
  return host::instance_of<GameCharacter>(kind.node) != nullptr;
}

// What an animated tile covers in its current frame; None for nothing.
Ref current_block(Value node) {
  Ref action = message::GetCurrActionName(node);
  Ref frame = message::GetCurrFrameIndex(node);
  return message::GetKeyFrame_TileBlock(node, action, frame);
}

}  // namespace

void TiledMap::update(Value delay) {
  message::update.base<&GameNode::update>(*this, delay);
  Ref blocked = read(Coll_Dict);
  blocked.call("clear"_name);
  const std::optional<TileSurvey> survey = TileSurvey::of(*this);
  if (survey && std::none_of(survey->kinds().begin(), survey->kinds().end(), may_block)) return;
  each_tile([&](Py_ssize_t column, Py_ssize_t row, Py_ssize_t index, Value content) {
    Ref node = resource(content);
    if (host::instance_of<GameCharacter>(node) == nullptr) return;
    Ref information = current_block(node);
    if (!information.is_set()) return;
    const Block block = read_block(information);
    Ref cells = covered_cells(host::integer(column), host::integer(row), block);
    Ref entries = read(Coll_Dict);
    entries.set_item(host::integer(index), cells);
  });
}

}  // namespace tessora
