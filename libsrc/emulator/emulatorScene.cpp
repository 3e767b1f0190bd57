// The scene of what the viewer shows, built from its state: every placement decision of the picture is made
// here, in plain numbers, so that the painter only paints and checks can measure.
#include "vistralemulator/emulatorScene.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iterator>
#include <map>
#include <optional>

#include "vistralcontrol/vdcAttachablePdu.h"
#include "vistralcontrol/vdcLinePdu.h"
#include "vistralcontrol/vdcLineSegment.h"
#include "vistralcontrol/vistralDrawControlPdu.h"
#include "vistralemulator/emulatorSnapshot.h"

namespace {

namespace F = DtEmulatorField;
using Point = DtEmulatorScenePoint;
using Color = DtEmulatorSceneColor;
using Shape = DtEmulatorSceneShape;
using Label = DtEmulatorSceneLabel;
using Part = DtEmulatorScenePart;

constexpr double kWidth = 1480;
constexpr double kHeight = 860;
constexpr double kPane = 680;
constexpr double kTop = 110;
constexpr double kOverlayLeft = 30;
constexpr double kMapLeft = 770;
// Room kept free around the map's world geometry for what is drawn at a fixed size: symbols, arrow heads,
// the eye, flash rays.
constexpr double kMapMargin = 40;
constexpr double kPi = 3.14159265358979323846;
// Painters keep coordinates in fixed point; anything beyond this is off the picture anyway.
constexpr double kFar = 1e5;
// World coordinates beyond this are not framed: they would squeeze the rest of the map to a dot.
constexpr double kWorldLimit = 1e12;

bool finite(double v) { return std::isfinite(v); }
double clampFar(double v) { return std::clamp(finite(v) ? v : 0.0, -kFar, kFar); }

// Wire texts as the picture shows them: printable ASCII, bounded.
std::string printable(const std::string& text, std::size_t max = 48) {
  std::string out;
  for (const char c : text) {
    if (out.size() >= max) {
      out += "...";
      break;
    }
    out += (c >= 0x20 && c < 0x7F) ? c : '?';
  }
  return out;
}

std::string number(double v) {
  char buffer[32];
  std::snprintf(buffer, sizeof buffer, "%.6g", v);
  return buffer;
}

std::string valueText(const DtEmulatorValue& value) {
  if (const auto* b = std::get_if<bool>(&value)) return *b ? "on" : "off";
  if (const auto* i = std::get_if<long long>(&value)) return std::to_string(*i);
  if (const auto* d = std::get_if<double>(&value)) return number(*d);
  return "\"" + printable(std::get<std::string>(value), 24) + "\"";
}

Color rgb(double r, double g, double b, double a = 1) { return {r, g, b, a}; }
Color colorOf(const DtEmulatorColor& c, double alphaScale = 1.0) {
  return {c.r / 255.0, c.g / 255.0, c.b / 255.0, c.a / 255.0 * alphaScale};
}

// A dash pattern from the 32 bits of a line pattern, most significant bit first, one bit per unit: runs of
// ones are drawn, runs of zeros left out, starting with a drawn run. All ones (and no bits at all) is solid.
std::vector<double> dashesOf(std::uint32_t pattern, double unit) {
  if (pattern == 0 || pattern == DtVdcLineSegment::kSolidPattern) return {};
  while ((pattern & 0x80000000u) == 0) pattern = (pattern << 1) | (pattern >> 31);
  std::vector<double> dashes;
  int bit = 31;
  while (bit >= 0) {
    const bool on = (pattern >> bit) & 1u;
    int run = 0;
    while (bit >= 0 && (((pattern >> bit) & 1u) != 0) == on) {
      ++run;
      --bit;
    }
    dashes.push_back(run * unit);
  }
  return dashes;
}

Shape polyline(std::vector<Point> points, Color stroke, double width, Part part = Part::decoration,
               std::uint32_t id = 0) {
  Shape s;
  s.form = Shape::Form::polyline;
  s.points = std::move(points);
  s.stroke = stroke;
  s.width = width;
  s.part = part;
  s.objectId = id;
  return s;
}

Shape polygon(std::vector<Point> points, Color stroke, Color fill, double width, Part part = Part::decoration,
              std::uint32_t id = 0) {
  Shape s = polyline(std::move(points), stroke, width, part, id);
  s.form = Shape::Form::polygon;
  s.fill = fill;
  return s;
}

Shape ellipse(Point centre, double rx, double ry, double rotation, Color stroke, Color fill, double width,
              Part part = Part::decoration, std::uint32_t id = 0) {
  Shape s = polygon({centre}, stroke, fill, width, part, id);
  s.form = Shape::Form::ellipse;
  s.rx = std::clamp(finite(rx) ? std::fabs(rx) : 0.0, 0.0, kFar);
  s.ry = std::clamp(finite(ry) ? std::fabs(ry) : 0.0, 0.0, kFar);
  s.rotation = finite(rotation) ? std::fmod(rotation, 2 * kPi) : 0;
  return s;
}

Label label(Point at, const std::string& text, double size, Color color, bool bold = false,
            Part part = Part::decoration, std::uint32_t id = 0) {
  Label l;
  l.at = {clampFar(at.x), clampFar(at.y)};
  l.text = printable(text, 240);
  l.size = size;
  l.bold = bold;
  l.color = color;
  l.part = part;
  l.objectId = id;
  // A sans-serif glyph is about 0.6 of the size wide on average; the box errs on the large side.
  l.width = static_cast<double>(l.text.size()) * size * (bold ? 0.66 : 0.6);
  l.height = size * 1.25;
  l.left = l.at.x;
  l.top = l.at.y - size;
  return l;
}

// A filled arrow head with its tip at `to`, pointing away from `from`.
Shape arrowHead(Point from, Point to, double size, Color color, std::uint32_t id) {
  const double angle = std::atan2(to.y - from.y, to.x - from.x);
  return polygon({to,
                  {to.x - size * std::cos(angle - 0.45), to.y - size * std::sin(angle - 0.45)},
                  {to.x - size * std::cos(angle + 0.45), to.y - size * std::sin(angle + 0.45)}},
                 Color{}, color, 0, Part::arrowHead, id);
}

// The flashing marker: a burst of short rays around the point.
Shape flashMarker(Point p, std::uint32_t id) {
  Shape rays = polyline({}, rgb(1.0, 0.55, 0.0), 1.5, Part::flash, id);
  // One polyline per ray would be eight shapes; a polyline that steps out and back paints the same rays.
  for (int i = 0; i < 8; ++i) {
    const double a = i * kPi / 4;
    rays.points.push_back({p.x + 9 * std::cos(a), p.y + 9 * std::sin(a)});
    rays.points.push_back({p.x + 15 * std::cos(a), p.y + 15 * std::sin(a)});
    rays.points.push_back({p.x + 9 * std::cos(a), p.y + 9 * std::sin(a)});
  }
  return rays;
}

// What an anchor of each attachment type names: a free position, an entity or another object.
enum class AnchorKind { none, position, entity, object };
AnchorKind anchorKind(int attachment, int index) {
  using K = AnchorKind;
  using A = DtVdcAttachablePdu;
  // By attachment type, the kind of anchor 0 and of anchor 1.
  static const K kTable[][2] = {
      {K::position, K::none},   {K::position, K::position}, {K::entity, K::none},
      {K::object, K::none},     {K::entity, K::position},   {K::object, K::position},
      {K::position, K::entity}, {K::position, K::object},   {K::entity, K::object},
      {K::object, K::entity},   {K::entity, K::entity},     {K::object, K::object},
  };
  static_assert(std::size(kTable) == A::DtVcObjectAttachedToObjectObject + 1, "one row per attachment type");
  if (attachment < A::DtVcObjectNoAttach || attachment > A::DtVcObjectAttachedToObjectObject) return K::none;
  return kTable[attachment][index];
}

bool isLine(const DtEmulatorObject& o) {
  return o.viewerCommand == DtVcDrawLine || o.viewerCommand == DtVcDrawSegmentedLine;
}

// Screen-plane objects go on the overlay, unless they hang on an entity, which only the map can place.
bool isOverlay(const DtEmulatorObject& o) {
  switch (o.type) {
    case DtVdc2DLine:
    case DtVdc2DSegmentedLine:
    case DtVdcCircle:
    case DtVdcSquare:
    case DtVdc2DTriangle:
    case DtVdc2DText:
      return anchorKind(o.anchor.attachment, 0) != AnchorKind::entity;
    default:
      return false;
  }
}

bool overlaps(const Label& a, const Label& b) {
  return a.left < b.left + b.width && b.left < a.left + a.width && a.top < b.top + b.height &&
         b.top < a.top + a.height;
}

// Keeps labels inside their pane and apart: a label that would cover one placed before it moves down or up,
// a line at a time, to the nearest free place. Decorations (panel rows) stay where they are.
void spreadLabels(DtEmulatorScenePane& pane) {
  std::vector<const Label*> placed;
  for (Label& l : pane.labels)
    if (l.part == Part::decoration) placed.push_back(&l);
  for (Label& l : pane.labels) {
    if (l.part == Part::decoration) continue;
    const double maxLeft = pane.left + pane.width - l.width - 2;
    const double left = std::clamp(l.left, pane.left + 2, std::max(pane.left + 2, maxLeft));
    const double top = std::clamp(l.top, pane.top + 2, pane.top + pane.height - l.height - 2);
    Label moved = l;
    for (int step = 0; step < 41; ++step) {
      const int lines = (step + 1) / 2;  // 0, 1, 1, 2, 2, ...: down and up in turn
      const double shift = static_cast<double>(lines) * l.height * (step % 2 == 1 ? 1 : -1);
      moved.left = left;
      moved.top = top + shift;
      if (moved.top < pane.top || moved.top + moved.height > pane.top + pane.height) continue;
      if (std::none_of(placed.begin(), placed.end(), [&](const Label* p) { return overlaps(moved, *p); }))
        break;
    }
    l.at.x += moved.left - l.left;
    l.at.y += moved.top - l.top;
    l.left = moved.left;
    l.top = moved.top;
    placed.push_back(&l);
  }
}

class Builder {
 public:
  explicit Builder(const DtEmulatorState& state) : state_(state) {}

  DtEmulatorScene build() {
    scene_.width = kWidth;
    scene_.height = kHeight;
    header();
    overlay();
    map();
    footer();
    spreadLabels(scene_.overlay);
    spreadLabels(scene_.map);
    return std::move(scene_);
  }

 private:
  // ---- the mode's fields ---------------------------------------------------------------------------------

  const DtEmulatorModeState* currentMode() const {
    const auto found = state_.view.modes.find(state_.view.mode);
    return found == state_.view.modes.end() ? nullptr : &found->second;
  }
  std::optional<double> field(const std::string& name) const {
    const DtEmulatorModeState* mode = currentMode();
    if (mode == nullptr) return std::nullopt;
    const auto found = mode->fields.find(name);
    if (found == mode->fields.end()) return std::nullopt;
    if (const auto* d = std::get_if<double>(&found->second))
      return finite(*d) ? std::optional(*d) : std::nullopt;
    return std::nullopt;
  }
  std::string textField(const char* name) const {
    const DtEmulatorModeState* mode = currentMode();
    if (mode == nullptr) return {};
    const auto found = mode->fields.find(name);
    if (found == mode->fields.end()) return {};
    const auto* s = std::get_if<std::string>(&found->second);
    return s ? *s : std::string();
  }
  std::optional<DtEmulatorVec> vectorField(const char* name) const {
    const auto x = field(std::string(name) + F::x), y = field(std::string(name) + F::y);
    if (!x || !y) return std::nullopt;
    return DtEmulatorVec{*x, *y, 0};
  }

  // ---- header and footer ---------------------------------------------------------------------------------

  void header() {
    const Color ink = rgb(0.1, 0.1, 0.1);
    scene_.labels.push_back(label(
        {30, 32}, "viewer " + printable(state_.viewerId) + " - mode " + DtEmulatorModeName(state_.view.mode),
        20, ink, true));
    std::string parameters;
    if (const DtEmulatorModeState* mode = currentMode())
      for (const auto& [name, value] : mode->fields) parameters += name + " " + valueText(value) + "  ";
    scene_.labels.push_back(
        label({30, 56}, parameters.empty() ? "no parameters given" : parameters, 11, ink));
    std::string options = "options:";
    for (const auto& [name, value] : state_.options) options += " " + name + "=" + valueText(value);
    scene_.labels.push_back(label({30, 74}, state_.options.empty() ? "options: none set" : options, 11, ink));
  }

  void footer() {
    int hidden = 0;
    for (const auto& [id, o] : state_.objects) hidden += state_.shown(o) ? 0 : 1;
    const DtEmulatorCounters& c = state_.counters;
    scene_.labels.push_back(
        label({30, kTop + kPane + 28},
              std::to_string(state_.objects.size()) + " objects (" + std::to_string(hidden) +
                  " hidden, not drawn); " + std::to_string(c.received) + " PDUs received, " +
                  std::to_string(c.answered) + " state reports sent. " +
                  "Orange rays: flashing. Diamonds: entities, placed symbolically. Red: the eye.",
              11, rgb(0.3, 0.3, 0.3)));
  }

  void paneFrame(DtEmulatorScenePane& pane, double left, const char* title) {
    pane.left = left;
    pane.top = kTop;
    pane.width = pane.height = kPane;
    pane.title = title;
    pane.shapes.push_back(
        polygon({{left, kTop}, {left + kPane, kTop}, {left + kPane, kTop + kPane}, {left, kTop + kPane}},
                rgb(0.3, 0.3, 0.3), rgb(0.97, 0.97, 0.96), 1));
    scene_.labels.push_back(label({left, kTop - 10}, title, 15, rgb(0.15, 0.15, 0.15), true));
  }

  // ---- anchors -------------------------------------------------------------------------------------------

  // An anchor of an object as a point in its own space (screen units for overlay objects, world units for
  // the rest): a position, the symbolic place of an entity, or a point of the object it names (along it at
  // the anchor's relative location when that object is a line). Null when the anchor names nothing.
  std::optional<DtEmulatorVec> anchorPoint(const DtEmulatorObject& o, int index, int depth = 0) const {
    const DtEmulatorAnchor& a = o.anchor;
    switch (anchorKind(a.attachment, index)) {
      case AnchorKind::position:
        return a.positions[index];
      case AnchorKind::entity: {
        const auto found = entities_.find(a.entities[index]);
        if (found == entities_.end()) return std::nullopt;
        return DtEmulatorVec{found->second.x, found->second.y, 0};
      }
      case AnchorKind::object: {
        const auto found = state_.objects.find(a.objects[index]);
        if (found == state_.objects.end() || depth > 4) return std::nullopt;
        const DtEmulatorObject& target = found->second;
        const auto start = anchorPoint(target, 0, depth + 1);
        if (!start) return std::nullopt;
        const auto end = anchorPoint(target, 1, depth + 1);
        DtEmulatorVec p = *start;
        if (end && isLine(target)) {
          const double t = std::clamp(a.relativeLocations[index] / 100.0, 0.0, 1.0);
          for (int i = 0; i < 3; ++i) p[i] = (*start)[i] + ((*end)[i] - (*start)[i]) * t;
        }
        if (target.viewerCommand != DtVcDrawLine)
          for (int i = 0; i < 3; ++i) p[i] += target.anchor.offset[i];
        return p;
      }
      case AnchorKind::none:
        return std::nullopt;
    }
    return std::nullopt;
  }

  // ---- lines, on either pane
  // -------------------------------------------------------------------------------

  // A line from a to b as its segments: each takes its percentage of the length, in its own colour, width,
  // pattern and arrow style; lightning segments zigzag.
  void segments(DtEmulatorScenePane& pane, Point a, Point b, const DtEmulatorObject& o) {
    const double dx = b.x - a.x, dy = b.y - a.y;
    const double length = std::hypot(dx, dy);
    double at = 0;
    for (const DtEmulatorSegment& s : o.segments) {
      const double share = std::clamp(s.percentage / 100.0, 0.0, 1.0 - at);
      const Point p{a.x + dx * at, a.y + dy * at};
      const Point q{a.x + dx * (at + share), a.y + dy * (at + share)};
      at += share;
      const double width = std::clamp(static_cast<double>(s.thickness), 1.0, 12.0);
      Shape line = polyline({p}, colorOf(s.color), width, Part::object, o.id);
      line.dashes = dashesOf(s.pattern, 2 * width);
      if (s.appearance != DtVdcLinePdu::DtVdcLineAppearanceStraight && length > 0) {
        // Lightning: a zigzag across the segment.
        const double part = std::hypot(q.x - p.x, q.y - p.y);
        const int zigs = std::clamp(static_cast<int>(part / 10), 1, 200);
        const double nx = -dy / length * 5, ny = dx / length * 5;
        for (int i = 1; i < zigs; ++i) {
          const double t = static_cast<double>(i) / zigs;
          const double side = (i % 2 == 0) ? 1 : -1;
          line.points.push_back({p.x + (q.x - p.x) * t + side * nx, p.y + (q.y - p.y) * t + side * ny});
        }
      }
      line.points.push_back(q);
      pane.shapes.push_back(std::move(line));
      const double head = 6 + 2 * width;
      const unsigned style = static_cast<unsigned>(s.arrowStyle);
      if (style & DtVdcLinePdu::DtVdcStyleArrowEnd)
        pane.shapes.push_back(arrowHead(p, q, head, colorOf(s.color), o.id));
      if (style & DtVdcLinePdu::DtVdcStyleArrowStart)
        pane.shapes.push_back(arrowHead(q, p, head, colorOf(s.color), o.id));
    }
  }

  // ---- the overlay
  // -----------------------------------------------------------------------------------------

  // A screen position (-1..1 on both axes, as the PDUs carry screen percent / 100) on the overlay pane.
  static Point screen(double x, double y) {
    return {kOverlayLeft + (clampFar(x) + 1) / 2 * kPane, kTop + (1 - (clampFar(y) + 1) / 2) * kPane};
  }

  void overlay() {
    DtEmulatorScenePane& pane = scene_.overlay;
    paneFrame(pane, kOverlayLeft, "2D overlay (screen x, y: -100..100)");
    for (int g = -100; g <= 100; g += 50) {
      pane.shapes.push_back(polyline({screen(g / 100.0, -1), screen(g / 100.0, 1)}, rgb(0, 0, 0, 0.12), 1));
      pane.shapes.push_back(polyline({screen(-1, g / 100.0), screen(1, g / 100.0)}, rgb(0, 0, 0, 0.12), 1));
    }
    for (const auto& [id, o] : state_.objects)
      if (state_.shown(o) && isOverlay(o)) overlayObject(o);
    panels();
  }

  // The corners of a shape given around its anchor in screen units, scaled to the pane and turned by the
  // rotation's third angle (degrees, counter-clockwise on the screen).
  static std::vector<Point> turned(Point at, const std::vector<std::pair<double, double>>& corners,
                                   double degrees) {
    const double a = clampFar(degrees) * kPi / 180;
    const double c = std::cos(a), s = std::sin(a);
    std::vector<Point> out;
    for (const auto& [x, y] : corners) {
      const double px = clampFar(x * kPane / 2), py = clampFar(-y * kPane / 2);  // y up on the screen
      out.push_back({at.x + c * px + s * py, at.y - s * px + c * py});
    }
    return out;
  }

  void overlayObject(const DtEmulatorObject& o) {
    DtEmulatorScenePane& pane = scene_.overlay;
    const auto first = anchorPoint(o, 0);
    if (!first) return;
    const Point at = screen((*first)[0], (*first)[1]);
    const Color fill = o.fill ? colorOf(o.color, 0.45) : Color{};
    switch (o.type) {
      case DtVdc2DLine:
      case DtVdc2DSegmentedLine:
        if (const auto second = anchorPoint(o, 1)) segments(pane, at, screen((*second)[0], (*second)[1]), o);
        break;
      case DtVdcCircle:
        pane.shapes.push_back(ellipse(at, o.scale[0] * kPane / 4, o.scale[1] * kPane / 4,
                                      -clampFar(o.rotation[2]) * kPi / 180, colorOf(o.color), fill, 2,
                                      Part::object, o.id));
        break;
      case DtVdcSquare: {
        const double w = std::fabs(o.scale[0]) / 2, h = std::fabs(o.scale[1]) / 2;
        pane.shapes.push_back(polygon(turned(at, {{-w, -h}, {w, -h}, {w, h}, {-w, h}}, o.rotation[2]),
                                      colorOf(o.color), fill, 2, Part::object, o.id));
        break;
      }
      case DtVdc2DTriangle: {
        // Corners relative to the anchor, scaled (no scale given: as they stand), half size.
        const bool unscaled = o.scale[0] == 0 && o.scale[1] == 0;
        std::vector<std::pair<double, double>> corners;
        for (const DtEmulatorVec& p : o.points)
          corners.emplace_back(p[0] * (unscaled ? 1 : o.scale[0]) / 2,
                               p[1] * (unscaled ? 1 : o.scale[1]) / 2);
        pane.shapes.push_back(
            polygon(turned(at, corners, o.rotation[2]), colorOf(o.color), fill, 2, Part::object, o.id));
        break;
      }
      case DtVdc2DText:
        pane.labels.push_back(label(at, o.text, 15, colorOf(o.color), false, Part::object, o.id));
        break;
      default:
        break;
    }
    if (o.flashing) pane.shapes.push_back(flashMarker(at, o.id));
  }

  // Attribute panels: one card per attribute group, in the overlay's top right corner, listing each attribute
  // of its layout with its value (bars for value bars).
  void panels() {
    DtEmulatorScenePane& pane = scene_.overlay;
    double y = kTop + 12;
    const double left = kOverlayLeft + kPane - 230;
    for (const auto& [id, o] : state_.objects) {
      if (o.type != DtVdcAttributeGroup || !state_.shown(o)) continue;
      const auto layout = state_.attributeTemplates.find(o.attributeGroupId);
      std::vector<std::pair<std::uint32_t, const DtEmulatorAttributeDef*>> rows;
      if (layout != state_.attributeTemplates.end())
        for (const auto& [attribute, def] : layout->second)
          if (!o.hiddenAttributes.count(attribute)) rows.emplace_back(attribute, &def);
      const double height = 26 + 18 * static_cast<double>(std::min<std::size_t>(rows.size(), 12));
      if (y + height > kTop + kPane) break;
      pane.shapes.push_back(
          polygon({{left, y}, {left + 218, y}, {left + 218, y + height}, {left, y + height}},
                  colorOf(o.color), rgb(1, 1, 1, 0.92), 2));
      const auto templ = state_.objects.find(o.attributeGroupId);
      const std::string title =
          "panel " + std::to_string(id) +
          (templ != state_.objects.end() ? " (" + printable(templ->second.text, 20) + ")" : "");
      pane.labels.push_back(label({left + 8, y + 17}, title, 12, rgb(0.1, 0.1, 0.1), true));
      if (o.flashing) pane.shapes.push_back(flashMarker({left + 206, y + 12}, o.id));
      double row = y + 36;
      for (std::size_t i = 0; i < rows.size() && i < 12; ++i, row += 18) {
        const auto [attribute, def] = rows[i];
        const auto value = o.values.find(attribute);
        const DtEmulatorAttributeValue v =
            value == o.values.end() ? DtEmulatorAttributeValue{} : value->second;
        const std::string shown = !v.set                              ? "-"
                                  : def->type == DtVdcAttributeBitmap ? "[" + printable(v.text, 16) + "]"
                                  : def->type == DtVdcAttributeGraphicListValue
                                      ? "(" + number(v.x) + ", " + number(v.y) + ")"
                                  : def->type == DtVdcAttributeNoValue ? ""
                                                                       : number(v.x);
        pane.labels.push_back(label({left + 8, row}, printable(def->name, 16), 11, rgb(0.2, 0.2, 0.2)));
        if (def->type == DtVdcAttributeGraphicSingleValue && def->hasRange && def->rangeMax > def->rangeMin) {
          const double t = std::clamp((v.x - def->rangeMin) / (def->rangeMax - def->rangeMin), 0.0, 1.0);
          const double filled = 100 * (finite(t) ? t : 0);
          pane.shapes.push_back(
              polygon({{left + 110, row - 10}, {left + 210, row - 10}, {left + 210, row}, {left + 110, row}},
                      Color{}, rgb(0.85, 0.85, 0.85), 0));
          pane.shapes.push_back(polygon({{left + 110, row - 10},
                                         {left + 110 + filled, row - 10},
                                         {left + 110 + filled, row},
                                         {left + 110, row}},
                                        Color{}, colorOf(o.color), 0));
        } else {
          pane.labels.push_back(label({left + 110, row}, shown, 11, rgb(0.2, 0.2, 0.2)));
        }
      }
      y += height + 10;
    }
  }

  // ---- the map
  // ----------------------------------------------------------------------------------------------

  // A world point on the map. While the map is measured it only widens the frame.
  Point world(const DtEmulatorVec& v) { return world(v[0], v[1]); }
  Point world(double x, double y) {
    if (measuring_) reach(x, y, 0);
    return {clampFar(kMapLeft + kPane / 2 + (x - scene_.mapCentreX) * scene_.mapScale),
            clampFar(kTop + kPane / 2 - (y - scene_.mapCentreY) * scene_.mapScale)};
  }
  // A world length in pixels.
  double length(double worldLength) const { return clampFar(worldLength * scene_.mapScale); }
  // Widens the frame to hold a circle of world radius r around (x, y).
  void reach(double x, double y, double r) {
    if (!measuring_ || !finite(x) || !finite(y) || !finite(r) || std::fabs(x) + std::fabs(r) > kWorldLimit ||
        std::fabs(y) + std::fabs(r) > kWorldLimit)
      return;
    if (!framed_) {
      minX_ = maxX_ = x, minY_ = maxY_ = y;
      framed_ = true;
    }
    r = std::fabs(r);
    minX_ = std::min(minX_, x - r), maxX_ = std::max(maxX_, x + r);
    minY_ = std::min(minY_, y - r), maxY_ = std::max(maxY_, y + r);
  }

  // Entities cannot be placed, so they stand on a ring around the free positions of the 3D objects and the
  // eye. Then the map is built once to measure it and once to draw it, framed to hold all it draws.
  void map() {
    placeEntities();
    DtEmulatorScenePane& pane = scene_.map;
    measuring_ = true;
    mapContents(pane);
    measuring_ = false;
    pane = DtEmulatorScenePane{};
    if (!framed_) minX_ = minY_ = -100, maxX_ = maxY_ = 100;
    scene_.mapCentreX = (minX_ + maxX_) / 2;
    scene_.mapCentreY = (minY_ + maxY_) / 2;
    const double extent = std::max({maxX_ - minX_, maxY_ - minY_, 1e-6});
    scene_.mapScale = (kPane - 2 * kMapMargin) / extent;
    paneFrame(pane, kMapLeft, "top-down map of the 3D objects (x right, y up)");
    mapContents(pane);
    scaleBar(pane);
  }

  void placeEntities() {
    double minX = 0, maxX = 0, minY = 0, maxY = 0;
    bool any = false;
    const auto take = [&](double x, double y) {
      if (!finite(x) || !finite(y) || std::fabs(x) > kWorldLimit || std::fabs(y) > kWorldLimit) return;
      if (!any) {
        minX = maxX = x, minY = maxY = y;
        any = true;
      }
      minX = std::min(minX, x), maxX = std::max(maxX, x), minY = std::min(minY, y), maxY = std::max(maxY, y);
    };
    std::vector<std::string> names;
    const auto entity = [&](const std::string& name) {
      if (!name.empty() && std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
    };
    for (const auto& [id, o] : state_.objects) {
      if (!state_.shown(o) || isOverlay(o) || !o.attachable) continue;
      if (o.viewerCommand == DtVdcAttribute && o.type != DtVdcAttributeGroup)
        continue;  // layouts are not drawn
      // Triangles and areas stand on their points; their anchor is not where they are drawn.
      const bool byPoints = o.viewerCommand == DtVdcTriangle || o.viewerCommand == DtVdcArea;
      for (int i = 0; i < 2 && !byPoints; ++i) {
        const AnchorKind kind = anchorKind(o.anchor.attachment, i);
        if (kind == AnchorKind::position) take(o.anchor.positions[i][0], o.anchor.positions[i][1]);
        if (kind == AnchorKind::entity) entity(o.anchor.entities[i]);
      }
      for (const DtEmulatorVec& p : o.points) take(p[0], p[1]);
    }
    for (const char* name : {F::location, F::pivotPoint})
      if (const auto p = vectorField(name)) take((*p)[0], (*p)[1]);
    for (const char* name : {F::attachId, F::trackId}) entity(textField(name));
    if (state_.view.mode == DtVcGroup)
      for (const std::string& member : state_.view.group) entity(member);
    if (!any) minX = minY = -100, maxX = maxY = 100;
    const double centreX = (minX + maxX) / 2, centreY = (minY + maxY) / 2;
    const double ring = std::max(std::max(maxX - minX, maxY - minY) * 0.6, 20.0);
    for (std::size_t i = 0; i < names.size(); ++i) {
      const double a = kPi / 2 + 2 * kPi * static_cast<double>(i) / static_cast<double>(names.size());
      entities_[names[i]] = {centreX + ring * std::cos(a), centreY + ring * std::sin(a)};
    }
  }

  // The world point of a 3D object's anchor with its offset added.
  std::optional<DtEmulatorVec> placed(const DtEmulatorObject& o, int index) const {
    const auto p = anchorPoint(o, index);
    if (!p) return std::nullopt;
    return DtEmulatorVec{(*p)[0] + o.anchor.offset[0], (*p)[1] + o.anchor.offset[1], 0};
  }

  void mapContents(DtEmulatorScenePane& pane) {
    for (const auto& [id, o] : state_.objects)
      if (state_.shown(o) && !isOverlay(o)) mapObject(pane, o);
    for (const auto& [name, p] : entities_) {
      const Point at = world(p.x, p.y);
      pane.shapes.push_back(polygon({{at.x, at.y - 8}, {at.x + 8, at.y}, {at.x, at.y + 8}, {at.x - 8, at.y}},
                                    rgb(0.25, 0.25, 0.55), Color{}, 1.5, Part::entity));
      pane.labels.push_back(
          label({at.x + 10, at.y + 4}, "entity " + name, 11, rgb(0.25, 0.25, 0.55), false, Part::entity));
    }
    eyePoint(pane);
  }

  void mapObject(DtEmulatorScenePane& pane, const DtEmulatorObject& o) {
    switch (o.viewerCommand) {
      case DtVcDrawLine:
      case DtVcDrawSegmentedLine: {
        const auto a = placed(o, 0), b = placed(o, 1);
        if (a && b) segments(pane, world(*a), world(*b), o);
        if (a && o.flashing) pane.shapes.push_back(flashMarker(world(*a), o.id));
        return;
      }
      case DtVdcTriangle:
      case DtVdcArea: {
        if (o.points.empty()) return;
        std::vector<Point> corners;
        for (const DtEmulatorVec& p : o.points) corners.push_back(world(p));
        pane.shapes.push_back(
            polygon(corners, colorOf(o.color), colorOf(o.color, 0.35), 2, Part::object, o.id));
        if (!o.textureFilename.empty())
          pane.labels.push_back(label({corners[0].x + 4, corners[0].y - 4}, "texture " + o.textureFilename,
                                      10, rgb(0.2, 0.2, 0.2), false, Part::object, o.id));
        if (o.flashing) pane.shapes.push_back(flashMarker(corners[0], o.id));
        return;
      }
      case DtVdcPolyObject: {
        const auto a = placed(o, 0);
        if (!a) return;
        const Point at = world(*a);
        const double sx = std::fabs(o.scale[0]), sy = std::fabs(o.scale[1]);
        const auto b = placed(o, 1);
        if (o.type == DtVdcCylinder && b) {
          // A cylinder between two anchors: a band as wide as its first diameter.
          reach((*a)[0], (*a)[1], sy / 2);
          reach((*b)[0], (*b)[1], sy / 2);
          Shape band = polyline({at, world(*b)}, colorOf(o.color, 0.6), std::clamp(length(sy), 3.0, 60.0),
                                Part::object, o.id);
          band.roundCaps = true;
          pane.shapes.push_back(std::move(band));
          if (o.flashing) pane.shapes.push_back(flashMarker(at, o.id));
          return;
        }
        // The map looks down, so only the heading (psi, radians) turns a solid; heading 0 points up.
        reach((*a)[0], (*a)[1], std::hypot(sx, sy) / 2);
        const double heading = finite(o.rotation[0]) ? o.rotation[0] : 0;
        const double w = std::max(length(sx), 2.0), h = std::max(length(sy), 2.0);
        if (o.type == DtVdcSphere || o.type == DtVdcCircle) {
          pane.shapes.push_back(ellipse(at, w / 2, h / 2, heading, colorOf(o.color), colorOf(o.color, 0.4), 2,
                                        Part::object, o.id));
        } else {
          // A cylinder standing alone lies along its heading; a box is as wide as its x scale.
          const double hw = (o.type == DtVdcCylinder ? h : w) / 2, hh = (o.type == DtVdcCylinder ? w : h) / 2;
          const double c = std::cos(heading), s = std::sin(heading);
          std::vector<Point> corners;
          for (const auto& [x, y] : {std::pair{-hw, -hh}, {hw, -hh}, {hw, hh}, {-hw, hh}})
            corners.push_back({at.x + c * x - s * y, at.y + s * x + c * y});
          pane.shapes.push_back(
              polygon(corners, colorOf(o.color), colorOf(o.color, 0.4), 2, Part::object, o.id));
        }
        if (o.flashing) pane.shapes.push_back(flashMarker(at, o.id));
        return;
      }
      case DtVdcText: {
        const auto a = placed(o, 0);
        if (!a) return;
        const Point at = world(*a);
        pane.shapes.push_back(ellipse(at, 2.5, 2.5, 0, Color{}, colorOf(o.color), 0, Part::object, o.id));
        pane.labels.push_back(
            label({at.x + 5, at.y - 5}, o.text, 13, colorOf(o.color), false, Part::object, o.id));
        if (o.flashing) pane.shapes.push_back(flashMarker(at, o.id));
        return;
      }
      case DtVdcAttribute: {
        if (o.type != DtVdcAttributeGroup) return;
        const auto a = placed(o, 0);
        if (!a) return;
        const Point at = world(*a);
        pane.shapes.push_back(polygon(
            {{at.x - 5, at.y - 16}, {at.x + 21, at.y - 16}, {at.x + 21, at.y - 4}, {at.x - 5, at.y - 4}},
            colorOf(o.color), Color{}, 1.5, Part::object, o.id));
        pane.shapes.push_back(
            polyline({at, {at.x - 2, at.y - 4}}, colorOf(o.color), 1.5, Part::object, o.id));
        pane.labels.push_back(label({at.x + 24, at.y - 6}, "panel " + std::to_string(o.id), 10,
                                    colorOf(o.color), false, Part::object, o.id));
        return;
      }
      default:
        return;
    }
  }

  // The eye of the current mode: where it stands and where it looks, or the entity it hangs on. Headings
  // turn clockwise from the map's y axis; an orbiting eye stands behind its entity, looking along its
  // heading.
  void eyePoint(DtEmulatorScenePane& pane) {
    const int mode = state_.view.mode;
    const auto entityAt = [&](const std::string& name) -> std::optional<DtEmulatorVec> {
      const auto found = entities_.find(name);
      if (found == entities_.end()) return std::nullopt;
      return DtEmulatorVec{found->second.x, found->second.y, 0};
    };
    const Color red = rgb(0.75, 0.05, 0.05);
    std::optional<DtEmulatorVec> eye, target;
    const double heading = field(std::string(F::orientation) + F::psi)
                               .value_or(field(F::heading).value_or(field(F::bodyHeading).value_or(0)));
    const double dirX = std::sin(heading), dirY = std::cos(heading);
    // An eye on a circle around a centre, behind it along the heading; the circle at least 12 pixels wide.
    const auto orbit = [&](const DtEmulatorVec& centre, double radius) {
      const double r = measuring_ ? radius : std::max(radius, 12 / scene_.mapScale);
      reach(centre[0], centre[1], r);
      Shape ring =
          ellipse(world(centre), length(r), length(r), 0, rgb(0.75, 0.05, 0.05, 0.5), Color{}, 1, Part::ring);
      ring.dashes = {2, 3};
      pane.shapes.push_back(std::move(ring));
      eye = DtEmulatorVec{centre[0] - r * dirX, centre[1] - r * dirY, 0};
      target = centre;
    };
    if (mode == DtVcAbsolute || mode == DtVcTrack) {
      eye = vectorField(F::location);
      if (mode == DtVcTrack) target = entityAt(textField(F::trackId));
    } else if (mode == DtVcPivot) {
      if (const auto p = vectorField(F::pivotPoint)) orbit(*p, std::fabs(field(F::radius).value_or(0)));
    } else if (mode == DtVcCompass || mode == DtVcOrbit) {
      if (const auto centre = entityAt(textField(F::attachId)))
        orbit(*centre, std::fabs(field(F::radius).value_or(0)));
    } else if (mode == DtVcGroup) {
      double sx = 0, sy = 0;
      int n = 0;
      for (const std::string& member : state_.view.group)
        if (const auto p = entityAt(member)) sx += (*p)[0], sy += (*p)[1], ++n;
      if (n > 0) {
        target = DtEmulatorVec{sx / n, sy / n, 0};
        const double back =
            std::max(std::fabs(field(F::radialOffset).value_or(0)), measuring_ ? 0 : 20 / scene_.mapScale);
        eye = DtEmulatorVec{(*target)[0], (*target)[1] - back, 0};
        reach((*target)[0], (*target)[1], back);
      }
    } else if (const auto attached = entityAt(textField(F::attachId))) {
      const auto o = vectorField(mode == DtVcTether ? F::topoUpOffset : F::offset);
      eye = DtEmulatorVec{(*attached)[0] + (o ? (*o)[0] : 0), (*attached)[1] + (o ? (*o)[1] : 0), 0};
      target = entityAt(textField(F::trackId));
    }
    const auto& moved = state_.view.eye.fields;
    const auto mx = moved.find(std::string(F::position) + F::x),
               my = moved.find(std::string(F::position) + F::y);
    if (mx != moved.end() && my != moved.end() && !measuring_) {
      // The eye as a move left it is drawn where it falls but does not stretch the map: a move may have put
      // it anywhere, often at a small offset from the origin, far from a scene in world coordinates.
      const Point m = world(mx->second, my->second);
      pane.shapes.push_back(ellipse(m, 5, 5, 0, Color{}, rgb(0.5, 0.1, 0.5), 0, Part::eye));
      pane.labels.push_back(
          label({m.x + 8, m.y + 14}, "eye set by move", 10, rgb(0.5, 0.1, 0.5), false, Part::eye));
    }
    if (!eye) return;
    const Point at = world(*eye);
    if (target) {
      Shape sight = polyline({at, world(*target)}, red, 1.5, Part::sight);
      sight.dashes = {5, 4};
      pane.shapes.push_back(std::move(sight));
    } else {
      pane.shapes.push_back(arrowHead(at, {at.x + 30 * dirX, at.y - 30 * dirY}, 10, red, 0));
      pane.shapes.back().part = Part::sight;
    }
    pane.shapes.push_back(ellipse(at, 5, 5, 0, red, rgb(1, 1, 1), 4, Part::eye));
    pane.labels.push_back(label({at.x + 10, at.y - 8}, std::string("eye: ") + DtEmulatorModeName(mode), 12,
                                red, true, Part::eye));
  }

  void scaleBar(DtEmulatorScenePane& pane) {
    // A round length that is about a fifth of the pane.
    const double target = kPane / 5 / scene_.mapScale;
    const double step = std::pow(10.0, std::floor(std::log10(target)));
    double length = step;
    for (const double m : {2.0, 5.0, 10.0})
      if (step * m <= target) length = step * m;
    if (!finite(length) || length <= 0) return;
    const double x = kMapLeft + 20, y = kTop + kPane - 20;
    pane.shapes.push_back(polyline({{x, y}, {x + length * scene_.mapScale, y}}, rgb(0.2, 0.2, 0.2), 2));
    pane.labels.push_back(label({x, y - 6}, number(length) + " units", 10, rgb(0.2, 0.2, 0.2)));
  }

  const DtEmulatorState& state_;
  DtEmulatorScene scene_;
  std::map<std::string, Point> entities_;  // world positions
  bool measuring_ = false;
  bool framed_ = false;
  double minX_ = 0, maxX_ = 0, minY_ = 0, maxY_ = 0;
};

}  // namespace

DtEmulatorScene DtBuildEmulatorScene(const DtEmulatorState& state) { return Builder(state).build(); }
