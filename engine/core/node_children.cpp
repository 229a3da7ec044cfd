// Children that leave together, and those that their parent leads itself.
#include <algorithm>
#include <vector>

#include "engine/core/scene_node.hpp"

namespace tessora {

namespace {

// Closes the gaps that children have left at these places.
void close_gaps(GameNode& node, const std::vector<double>& gaps) {
  host::walk(node, node.children, [&](Value child) {
    const Number place = host::ask(message::GetSortIndex, child);
    const std::optional<double> plain = place.plain();
    if (!plain) return;
    const auto before = std::ranges::lower_bound(gaps, *plain) - gaps.begin();
    if (before > 0) message::SetSortIndex(child, place - Number(static_cast<int>(before)));
  });
}

}  // namespace

host::ListWalk GameNode::walk_children(host::ListWalk::Direction direction) {
  if (led == nullptr || is_unset(*led)) return {*this, children, direction};
  Ref all = Ref(read(children)).to_list();
  Ref left_out = Ref(read(*led)).to_list();
  return {*this, children, direction, host::without(all, left_out)};
}

void GameNode::remove_children(Value gone) {
  auto one_by_one = [&] {
    for (Ref child : host::Items(gone)) message::RemoveChild(*this, child);
  };
  const bool as_engine = message::RemoveChild.direct<&GameNode::RemoveChild>(*this) != nullptr;
  Ref list = read(children);
  if (!as_engine || !list.is_plain_list()) return one_by_one();
  Ref leaving = host::among(list, gone);
  std::vector<double> gaps;
  for (Ref child : host::Items(leaving)) {
    message::RemoveAllChildren(child);
    const Number place = host::ask(message::GetSortIndex, child);
    const std::optional<double> plain = place.plain();
    if (!plain) return one_by_one();
    gaps.push_back(*plain);
  }
  std::ranges::sort(gaps);
  list = read(children);
  if (!list.is_plain_list()) return one_by_one();
  host::erase_each(list, leaving);
  close_gaps(*this, gaps);
}

}  // namespace tessora
