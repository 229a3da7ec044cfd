#include "engine/panels/tree.hpp"

#include <algorithm>

#include "engine/host/paths.hpp"
#include "engine/object/wrong_attributes.hpp"
#include "engine/pixels/surface.hpp"

namespace tessora {

namespace message {
namespace {
Message AppendChildItem{"AppendChildItem"};
Message InsertChildItem{"InsertChildItem"};
Message LookForItemNode{"LookForItemNode"};
}  // namespace
}  // namespace message

namespace {

// In unscaled pixels.
constexpr double kRow = 20.0;
constexpr double kIndent = 20.0;
constexpr double kBoxLeft = 10.0;
constexpr double kBoxTop = 2.0;
constexpr double kBoxSide = 16.0;
constexpr double kSignInset = 4.0;
constexpr int kSignThickness = 3;
constexpr double kGap = 4.0;

// What a row looks like on the surface that it is drawn on.
struct Row {
  render::Canvas canvas;
  double left = 0.0;
  double top = 0.0;
  render::Size factor{1.0, 1.0};

  [[nodiscard]] render::Box box(double x, double y, double width, double height) const {
    return {left + x * factor.width, top + y * factor.height, width * factor.width,
            height * factor.height};
  }
  void line(Value color, const render::Point& from, const render::Point& to) const {
    canvas.line(color, {left + from.x * factor.width, top + from.y * factor.height},
                {left + to.x * factor.width, top + to.y * factor.height}, kSignThickness);
  }
};

// The box with a plus or a minus; an item that has nothing below it shows the minus alone.
render::Box draw_sign(const Row& row, Value color, bool has_children, bool is_open) {
  const render::Box box = row.box(kBoxLeft, kBoxTop, kBoxSide, kBoxSide);
  const double middle = kBoxSide / 2;
  const double end = kBoxSide - kSignInset - 1;
  if (has_children) row.canvas.outline(color, box, 1);
  row.line(color, {kBoxLeft + kSignInset, kBoxTop + middle}, {kBoxLeft + end, kBoxTop + middle});
  if (has_children && !is_open) {
    row.line(color, {kBoxLeft + middle, kBoxTop + kSignInset}, {kBoxLeft + middle, kBoxTop + end});
  }
  return box;
}

// An item's picture in the height of a row. Returns how much room it takes.
double draw_item_picture(const Row& row, double left, Value picture) {
  const render::NumberSize own = render::size_of(picture);
  const double high = own.height.to_double();
  if (!(high > 0.0)) return 0.0;
  const double zoom = std::min(1.0, kBoxSide / high);
  const double width = own.width.to_double() * zoom;
  const render::Box box = row.box(left, kRow / 2 - high * zoom / 2, width, high * zoom);
  const std::optional<int> wide = pixels(box.width);
  const std::optional<int> tall = pixels(box.height);
  if (!wide || !tall) return width;
  const render::Recipe recipe{*wide, *tall, 0.0, 255, false, 0};
  row.canvas.picture(picture, recipe, {box.left + box.width / 2, box.top + box.height / 2},
                     nullptr);
  return width;
}

void draw_item_text(const Row& row, double left, Value font, Value text, Value color) {
  if (text.length() == 0) return;
  const render::TextFace face = render::text_face(font, text, color);
  if (!face.picture) return;
  const render::NumberSize own = render::size_of(face.picture);
  const render::Box box =
      row.box(left, (kRow - face.height) / 2, own.width.to_double(), own.height.to_double());
  if (pixels(box.width) && pixels(box.height)) {
    row.canvas.text(face, {box.width, box.height}, {box.left, box.top});
  }
}

double real_attr(Value object, Value name) {
  Ref value = object.attr(name);
  return Number(value).to_double();
}

}  // namespace

void TreeItemNode::AppendChildItem(Value item) {
  Ref(read(itemChildren)).append(item);
}

void TreeItemNode::InsertChildItem(Value index, Value item) {
  Ref(read(itemChildren)).call("insert"_name, index, item);
}

void TreeItemNode::ExpandChildItem() {
  write(itemopen, true);
}

void TreeItemNode::CloseChildItem() {
  write(itemopen, false);
}

Ref TreeItemNode::LookForItemNode(Value text) {
  Ref own = read(itemText);
  if (own.equals(text)) return *this;
  Ref children = read(itemChildren);
  for (Ref child : host::items(children)) {
    Ref found = message::LookForItemNode(child, text);
    if (found.is_set()) return found;
  }
  return host::none();
}

// A file is loaded once, not on every draw.
Ref TreeItemNode::picture() {
  Ref given = read(itemImage);
  if (!host::is_path(given)) return given;
  const bool is_loaded = !is_unset(loaded_file) && Ref(read(loaded_file)).equals(given);
  if (!is_loaded) {
    write(loaded_picture, load_image(given));
    write(loaded_file, given);
  }
  return read(loaded_picture);
}

// The tree may be any object with its attributes.
Ref TreeItemNode::draw(Value screen, Value tree, const Number& x, const Number& y) {
  const double wide = real_attr(tree, "WSX"_name);
  const double high = real_attr(tree, "WSY"_name);
  const Row row{render::Canvas(screen), x.to_double(), y.to_double(), {wide, high}};
  Ref children = read(itemChildren);
  const bool has_children = children.length() > 0;
  const bool is_open = is_true(itemopen);
  Ref sign_color = tree.attr("borderColor"_name);
  const render::Box box = draw_sign(row, sign_color, has_children, is_open);
  auto* owner = host::instance_of<GUI_Tree>(tree);
  if (owner != nullptr && has_children) owner->note_box(*this, box);
  double left = kBoxLeft + kBoxSide + kGap;
  Ref shown = picture();
  const double room = shown.is_set() ? draw_item_picture(row, left, shown) : 0.0;
  if (room > 0.0) left += room + kGap;
  Ref font = tree.attr("font"_name);
  Ref color = tree.attr("textColor"_name);
  draw_item_text(row, left, font, Ref(read(itemText)), color);
  Ref below = host::real(row.top + kRow * high);
  if (!is_open) return below;
  Ref indented = host::real(row.left + kIndent * wide);
  for (Ref child : host::items(children)) {
    below = message::draw(child, screen, tree, indented, below);
  }
  return below;
}

void GUI_Tree::start_tree_font() {
  constexpr int kFontSize = 16;
  start_font(*this, "Arial"_name, host::integer(kFontSize));
}

void GUI_Tree::begin_sunken() {
  message::SetStyle(*this, "sunken"_name);
}

Ref GUI_Tree::InsertItem(Value parent_text, Value text, Value value, Value picture, Value index) {
  Ref item = host::make<TreeItemNode>(text, value, picture);
  if (!is_set(RootItemNode)) {
    write(RootItemNode, item);
    return item;
  }
  Ref parent_item = message::LookForItemNode(Ref(read(RootItemNode)), parent_text);
  if (!parent_item.is_set()) return host::none();
  if (index.is_none()) {
    message::AppendChildItem(parent_item, item);
  } else {
    message::InsertChildItem(parent_item, index, item);
  }
  return item;
}

void GUI_Tree::note_box(Value item, const render::Box& box) {
  if (is_unset(boxes)) return;
  Ref(read(boxes)).append(host::tuple(item, box.left, box.top, box.width, box.height));
}

bool GUI_Tree::toggle_at(const Number& px, const Number& py) {
  if (is_unset(boxes)) return false;
  Ref hit;
  for (Ref noted : host::items(Ref(read(boxes)))) {
    const Number left = Number(noted.item(1)) + Number(boxes_corner.x);
    const Number top = Number(noted.item(2)) + Number(boxes_corner.y);
    const bool inside = px >= left && py >= top && px < left + Number(noted.item(3)) &&
                        py < top + Number(noted.item(4));
    if (inside && !hit) hit = noted.item(Py_ssize_t{0});
  }
  if (!hit) return false;
  Ref is_open = hit.attr("itemopen"_name);
  hit.call(is_open.equals_true() ? "CloseChildItem"_name : "ExpandChildItem"_name);
  return true;
}

// A box takes the press where it is drawn, also beside the widget's rectangle; children lie on top.
Ref GUI_Tree::OnPickDownFunction(Value px, Value py) {
  if (!is_true(enable)) return host::none();
  Ref taker =
      message::OnPickDownFunction.base<&GameNode::OnPickDownFunction, GUI_Image>(*this, px, py);
  const bool is_free = !taker.is_set() || taker.is(*this);
  return is_free && is_visible(*this) && toggle_at(px, py) ? Ref(*this) : taker;
}

void GUI_Tree::draw(Value screen, Value offset_x, Value offset_y, Value scale) {
  if (!is_visible(*this)) return;
  host::naming_attributes(*this, [&] {
    begin_draw(offset_x, offset_y, scale);
    draw_picture_or_background(screen);
    write(boxes, host::list());
    Ref root = read(RootItemNode);
    const render::Box box = drawn_box();
    const double turn = drawn_angle();
    boxes_corner = turn == 0.0 ? render::Point{0, 0} : render::Point{box.left, box.top};
    if (root.is_set() && turn == 0.0) message::draw(root, screen, *this, box.left, box.top);
    if (root.is_set() && turn != 0.0) {
      // Rotated items turn with the widget, about its centre, and are cut at its edges. Nobody
      // knows when they change, so the tree as a part of the key keeps nothing.
      const render::Size size{box.width, box.height};
      render::Canvas(screen).sheet(render::FaceKey("tree", Value(*this)), size, size, turn,
                                   drawn_center(), [&](const render::Canvas& sheet) {
                                     message::draw(root, sheet.surface(), *this, 0.0, 0.0);
                                   });
    }
    finish_draw(screen, offset_x, offset_y, scale);
  });
}

namespace {

void declare_items(PyObject* module) {
  using Item = TreeItemNode;
  host::Declaration<Item> item(module, "TreeItemNode",
                               "An item of a GUI_Tree, with a text, any value and a picture; "
                               "GUI_Tree.InsertItem makes one.\n\n"
                               ">>> world = Tessora.TreeItemNode(\"World\", 1)\n"
                               ">>> world.AppendChildItem(Tessora.TreeItemNode(\"Level 1\"))");
  item.constructor(
      "(itemText: str = \"\", itemValue: Any = None, itemImage: str | pygame.Surface | None = "
      "None)");
  item.attribute<&Item::itemText>("itemText: str", host::given("itemText"),
                                  "The text that is shown.")
      .setter("SetItemText", "text");
  item.attribute<&Item::itemValue>("itemValue: Any", host::given("itemValue"), "Free for scripts.")
      .setter("SetItemValue", "value");
  item.attribute<&Item::itemImage>(
          "itemImage: str | pygame.Surface | None", host::given("itemImage"),
          "Picture in front of the text, or the name of its file, or None.")
      .setter("SetItemImage", "image");
  item.attribute<&Item::itemChildren>("itemChildren: list[TreeItemNode]",
                                      host::made<&host::new_list>(), "The items below this one.");
  item.attribute<&Item::itemopen>("itemopen: bool", false,
                                  "Whether the items below this one are shown.");
  item.hidden<&Item::loaded_file>().hidden<&Item::loaded_picture>();
  item.method<&Item::AppendChildItem>("AppendChildItem(item: TreeItemNode) -> None",
                                      "Add an item below this one, behind the others.")
      .method<&Item::InsertChildItem>("InsertChildItem(index: int, item: TreeItemNode) -> None",
                                      "Insert an item below this one, as list.insert does.")
      .method<&Item::ExpandChildItem>("ExpandChildItem() -> None", "Show the items below this one.")
      .method<&Item::CloseChildItem>("CloseChildItem() -> None", "Hide the items below this one.")
      .method<&Item::LookForItemNode>(
          "LookForItemNode(itemText: str) -> TreeItemNode | None",
          "Return the first item with that text, this one or one below it, depth first.\n\nRaises "
          "RecursionError when an item is its own descendant.")
      .method<&Item::draw>(
          "draw(screen: pygame.Surface, tree: GUI_Tree, x: float, y: float) -> float",
          "Draw the item and, while it is open, those below it, with the font, the colours and the "
          "scale of the tree.\n\n`x` and `y` are the corner of its row in pixels of the surface. "
          "Returns the `y` of the next row. Raises RecursionError when an open item is its own "
          "descendant.");
  item.finish();
}

}  // namespace

void register_tree(PyObject* module) {
  declare_items(module);
  using Tree = GUI_Tree;
  host::Declaration<Tree, GUI_Image> tree(
      module, "GUI_Tree",
      "A hierarchy of TreeItemNode items, whose boxes open and close them.\n\n"
      "`x` and `y` place the anchor in the parent, in pixels. The rows are drawn from the top left "
      "corner on, at any length; only a rotated tree cuts them at its edges.\n\n"
      ">>> tree = Tessora.GUI_Tree(None, 10, 20)\n"
      ">>> world = tree.InsertItem(None, \"World\")\n"
      ">>> level = tree.InsertItem(\"World\", \"Level 1\")");
  tree.constructor("(parent: GameNode | None = None, x: float = 0, y: float = 0)");
  tree.sets<&Tree::NodeType>("Tree").sets<&Tree::width>(20).sets<&Tree::height>(100);
  tree.step<&Tree::begin_sunken>();
  tree.attribute<&Tree::RootItemNode>("RootItemNode: TreeItemNode | None", nullptr,
                                      "The item that holds all others, or None.");
  declare_font_rows(tree);
  tree.step<&Tree::start_tree_font>();
  tree.attribute<&Tree::textColor>("textColor: pygame.Color", host::color(0, 0, 0),
                                   "Colour of the texts.")
      .getter("GetTextColor")
      .color_setter<host::Alpha::kGiven>("SetTextColor");
  tree.hidden<&Tree::boxes>();
  tree.method<&Tree::InsertItem>(
          "InsertItem(parentText: str | None, itemText: str, itemValue: Any = None, "
          "itemImage: str | pygame.Surface | None = None, index: int | None = None) -> "
          "TreeItemNode | None",
          "Make an item and put it below the first one whose text is `parentText`: at `index`, or "
          "behind the others.\n\nThe first item of a tree becomes its root. Returns the item, or "
          "None when there is no such parent.")
      .method<&Tree::OnPickDownFunction>(
          "OnPickDownFunction(x: float, y: float) -> GameNode | None",
          "Handle a press as a node does; one on the box of an item opens or closes it. A disabled "
          "tree takes none.")
      .method<&create_font<Tree>>(kCreateFont, kCreateFontDoc)
      .method<&set_font<Tree>>(kSetFont, kSetFontDoc);
  declare_draw<&Tree::draw>(
      tree,
      "Draw the picture or background, the items, border, overlays and children.\n\nRaises "
      "RecursionError when an open item is its own descendant.");
  tree.finish();
}

}  // namespace tessora
