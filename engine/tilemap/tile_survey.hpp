// What a map's cells show, where it can be found out without running a script.
#pragma once

#include <vector>

#include "engine/host/plain_lookup.hpp"
#include "engine/image/image.hpp"
#include "engine/tilemap/tiled_map.hpp"

namespace tessora {

class TileSurvey {
 public:
  // The cells with the same content.
  struct Kind {
    Ref node;
    Py_ssize_t last_cell;
  };

  // Nothing where the scene's look-up or a cell's content may run a script, or fail.
  static std::optional<TileSurvey> of(TiledMap& map);

  [[nodiscard]] Py_ssize_t columns() const { return columns_; }
  [[nodiscard]] Py_ssize_t rows() const { return rows_; }
  [[nodiscard]] const std::vector<Kind>& kinds() const { return kinds_; }
  [[nodiscard]] Ref content_at(Py_ssize_t index) const { return tiles_.item(index); }
  // The node of a cell; empty for one without a tile. Holds as long as no script runs.
  [[nodiscard]] const Ref& node_at(Py_ssize_t index) const;

 private:
  bool count_kinds();

  Ref tiles_;
  Py_ssize_t columns_ = 0;
  Py_ssize_t rows_ = 0;
  std::vector<Kind> kinds_;
  // By content: the last cell, then the number of the kind; -1 for none.
  std::vector<Py_ssize_t> by_content_;
};

}  // namespace tessora
