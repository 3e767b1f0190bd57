// One drawing routine for both picture formats: Cairo's SVG and image surfaces take the same calls.
#include "vistralemulator/emulatorPicture.h"

#include <cairo-svg.h>
#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <optional>
#include <sstream>

#include "vistralcontrol/vdcAttachablePdu.h"
#include "vistralcontrol/vdcLineSegment.h"
#include "vistralcontrol/vistralDrawControlPdu.h"
#include "vistralemulator/emulatorSnapshot.h"

namespace {

constexpr double kWidth = 1480;
constexpr double kHeight = 860;
constexpr double kPane = 680;
constexpr double kTop = 110;
constexpr double kOverlayLeft = 30;
constexpr double kMapLeft = 770;
constexpr double kPi = 3.14159265358979323846;
// Cairo keeps coordinates in fixed point; anything beyond this is off the picture anyway.
constexpr double kFar = 1e5;

struct Point {
  double x = 0;
  double y = 0;
};

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

void setColor(cairo_t* cr, const DtEmulatorColor& c, double alphaScale = 1.0) {
  cairo_set_source_rgba(cr, c.r / 255.0, c.g / 255.0, c.b / 255.0, c.a / 255.0 * alphaScale);
}

void text(cairo_t* cr, double x, double y, const std::string& s, double size = 12, bool bold = false) {
  cairo_select_font_face(cr, "sans-serif", CAIRO_FONT_SLANT_NORMAL,
                         bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
  cairo_set_font_size(cr, size);
  cairo_move_to(cr, clampFar(x), clampFar(y));
  cairo_show_text(cr, printable(s, 240).c_str());
  cairo_new_path(cr);  // show_text leaves a current point that the next arc would join with a line
}

// A dash pattern from the 32 bits of a line pattern, most significant bit first, one bit per unit: runs of
// ones are drawn, runs of zeros left out. All ones (and no bits at all) is a solid line.
void setPattern(cairo_t* cr, std::uint32_t pattern, double unit) {
  if (pattern == 0 || pattern == DtVdcLineSegment::kSolidPattern) {
    cairo_set_dash(cr, nullptr, 0, 0);
    return;
  }
  while ((pattern & 0x80000000u) == 0) pattern = (pattern << 1) | (pattern >> 31);
  double dashes[32];
  int count = 0;
  int bit = 31;
  while (bit >= 0) {
    const bool on = (pattern >> bit) & 1u;
    int run = 0;
    while (bit >= 0 && (((pattern >> bit) & 1u) != 0) == on) {
      ++run;
      --bit;
    }
    dashes[count++] = run * unit;
  }
  cairo_set_dash(cr, dashes, count, 0);
}

void arrowHead(cairo_t* cr, Point from, Point to, double size) {
  const double angle = std::atan2(to.y - from.y, to.x - from.x);
  cairo_save(cr);
  cairo_set_dash(cr, nullptr, 0, 0);
  cairo_move_to(cr, to.x, to.y);
  cairo_line_to(cr, to.x - size * std::cos(angle - 0.45), to.y - size * std::sin(angle - 0.45));
  cairo_line_to(cr, to.x - size * std::cos(angle + 0.45), to.y - size * std::sin(angle + 0.45));
  cairo_close_path(cr);
  cairo_fill(cr);
  cairo_restore(cr);
}

// A line from a to b as its segments: each takes its percentage of the length, in its own colour, thickness,
// pattern and arrow style; lightning segments zigzag.
void drawSegments(cairo_t* cr, Point a, Point b, const std::vector<DtEmulatorSegment>& segments) {
  const double dx = b.x - a.x, dy = b.y - a.y;
  const double length = std::hypot(dx, dy);
  double at = 0;
  for (const DtEmulatorSegment& s : segments) {
    const double share = std::clamp(s.percentage / 100.0, 0.0, 1.0 - at);
    const Point p{a.x + dx * at, a.y + dy * at};
    const Point q{a.x + dx * (at + share), a.y + dy * (at + share)};
    at += share;
    const double width = std::clamp(static_cast<double>(s.thickness), 1.0, 12.0);
    setColor(cr, s.color);
    cairo_set_line_width(cr, width);
    setPattern(cr, s.pattern, 2 * width);
    cairo_move_to(cr, p.x, p.y);
    if (s.appearance != 0 && length > 0) {
      // Lightning: a zigzag across the segment.
      const double part = std::hypot(q.x - p.x, q.y - p.y);
      const int zigs = std::clamp(static_cast<int>(part / 10), 1, 200);
      const double nx = -dy / length * 5, ny = dx / length * 5;
      for (int i = 1; i < zigs; ++i) {
        const double t = static_cast<double>(i) / zigs;
        const double side = (i % 2 == 0) ? 1 : -1;
        cairo_line_to(cr, p.x + (q.x - p.x) * t + side * nx, p.y + (q.y - p.y) * t + side * ny);
      }
    }
    cairo_line_to(cr, q.x, q.y);
    cairo_stroke(cr);
    const double head = 6 + 2 * width;
    if (s.arrowStyle & 1) arrowHead(cr, p, q, head);
    if (s.arrowStyle & 2) arrowHead(cr, q, p, head);
  }
  cairo_set_dash(cr, nullptr, 0, 0);
}

// The flashing marker: a burst of short rays around the point.
void flashMarker(cairo_t* cr, Point p) {
  cairo_save(cr);
  cairo_set_source_rgba(cr, 1.0, 0.55, 0.0, 1.0);
  cairo_set_line_width(cr, 1.5);
  for (int i = 0; i < 8; ++i) {
    const double a = i * kPi / 4;
    cairo_move_to(cr, p.x + 9 * std::cos(a), p.y + 9 * std::sin(a));
    cairo_line_to(cr, p.x + 15 * std::cos(a), p.y + 15 * std::sin(a));
  }
  cairo_stroke(cr);
  cairo_restore(cr);
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

class Picture {
 public:
  Picture(cairo_t* cr, const DtEmulatorState& state) : cr_(cr), state_(state) {}

  void draw() {
    cairo_set_source_rgb(cr_, 1, 1, 1);
    cairo_paint(cr_);
    header();
    overlayPane();
    mapPane();
    footer();
  }

 private:
  // ---- placement ----------------------------------------------------------------------------------------

  // A screen position (-1..1 on both axes, as the PDUs carry screen percent / 100) on the overlay pane.
  Point screen(double x, double y) const {
    return {kOverlayLeft + (clampFar(x) + 1) / 2 * kPane, kTop + (1 - (clampFar(y) + 1) / 2) * kPane};
  }
  Point world(const DtEmulatorVec& v) const { return world(v[0], v[1]); }
  Point world(double x, double y) const {
    return {clampFar(kMapLeft + kPane / 2 + (x - centreX_) * scale_),
            clampFar(kTop + kPane / 2 - (y - centreY_) * scale_)};
  }

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
        if (end && (target.viewerCommand == DtVcDrawLine || target.viewerCommand == DtVcDrawSegmentedLine)) {
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

  // The world point of a 3D object's anchor with its offset added.
  std::optional<Point> placed(const DtEmulatorObject& o, int index) const {
    const auto p = anchorPoint(o, index);
    if (!p) return std::nullopt;
    return world((*p)[0] + o.anchor.offset[0], (*p)[1] + o.anchor.offset[1]);
  }

  const DtEmulatorModeState* currentMode() const {
    const auto found = state_.view.modes.find(state_.view.mode);
    return found == state_.view.modes.end() ? nullptr : &found->second;
  }
  std::optional<double> field(const char* name) const {
    const DtEmulatorModeState* mode = currentMode();
    if (mode == nullptr) return std::nullopt;
    const auto found = mode->fields.find(name);
    if (found == mode->fields.end()) return std::nullopt;
    if (const auto* d = std::get_if<double>(&found->second)) return *d;
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
  std::optional<DtEmulatorVec> vectorField(const std::string& name) const {
    const auto x = field((name + ".x").c_str()), y = field((name + ".y").c_str());
    if (!x || !y) return std::nullopt;
    return DtEmulatorVec{*x, *y, 0};
  }

  // The map's extent: every free position of a 3D object and of the eye, then the entities, which the
  // emulator cannot place, on a ring around them.
  void layoutMap() {
    double minX = 0, maxX = 0, minY = 0, maxY = 0;
    bool any = false;
    const auto take = [&](double x, double y) {
      if (!finite(x) || !finite(y) || std::fabs(x) > 1e12 || std::fabs(y) > 1e12) return;
      if (!any) {
        minX = maxX = x;
        minY = maxY = y;
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
    for (const char* name : {"location", "pivotPoint"})
      if (const auto p = vectorField(name)) take((*p)[0], (*p)[1]);
    for (const char* name : {"attachId", "trackId"}) entity(textField(name));
    if (state_.view.mode == DtVcGroup)
      for (const std::string& member : state_.view.group) entity(member);
    // The eye as a move set it is drawn where it falls but does not stretch the map: a move may have put it
    // anywhere, often at a small offset from the origin, far from a scene in world coordinates.

    if (!any) minX = minY = -100, maxX = maxY = 100;
    centreX_ = (minX + maxX) / 2;
    centreY_ = (minY + maxY) / 2;
    double extent = std::max({maxX - minX, maxY - minY, 1.0});
    const double ring = std::max(extent * 0.6, 20.0);
    for (std::size_t i = 0; i < names.size(); ++i) {
      const double a = kPi / 2 + 2 * kPi * static_cast<double>(i) / static_cast<double>(names.size());
      entities_[names[i]] = {centreX_ + ring * std::cos(a), centreY_ + ring * std::sin(a)};
    }
    if (!names.empty()) extent = std::max(extent, 2 * ring);
    scale_ = kPane / (extent * 1.3);
  }

  // ---- the panes ----------------------------------------------------------------------------------------

  void frame(double left, const char* title) {
    cairo_set_source_rgb(cr_, 0.97, 0.97, 0.96);
    cairo_rectangle(cr_, left, kTop, kPane, kPane);
    cairo_fill_preserve(cr_);
    cairo_set_source_rgb(cr_, 0.3, 0.3, 0.3);
    cairo_set_line_width(cr_, 1);
    cairo_stroke(cr_);
    cairo_set_source_rgb(cr_, 0.15, 0.15, 0.15);
    text(cr_, left, kTop - 10, title, 15, true);
  }

  void header() {
    cairo_set_source_rgb(cr_, 0.1, 0.1, 0.1);
    text(cr_, 30, 32,
         "viewer " + printable(state_.viewerId) + " - mode " + DtEmulatorModeName(state_.view.mode), 20,
         true);
    std::string parameters;
    if (const DtEmulatorModeState* mode = currentMode())
      for (const auto& [name, value] : mode->fields) parameters += name + " " + valueText(value) + "  ";
    text(cr_, 30, 56, parameters.empty() ? "no parameters given" : parameters, 11);
    std::string options = "options:";
    for (const auto& [name, value] : state_.options) options += " " + name + "=" + valueText(value);
    text(cr_, 30, 74, state_.options.empty() ? "options: none set" : options, 11);
  }

  void overlayPane() {
    frame(kOverlayLeft, "2D overlay (screen x, y: -100..100)");
    cairo_save(cr_);
    cairo_rectangle(cr_, kOverlayLeft, kTop, kPane, kPane);
    cairo_clip(cr_);
    cairo_set_source_rgba(cr_, 0, 0, 0, 0.12);
    cairo_set_line_width(cr_, 1);
    for (int g = -100; g <= 100; g += 50) {
      const Point a = screen(g / 100.0, -1), b = screen(g / 100.0, 1);
      const Point c = screen(-1, g / 100.0), d = screen(1, g / 100.0);
      cairo_move_to(cr_, a.x, a.y), cairo_line_to(cr_, b.x, b.y);
      cairo_move_to(cr_, c.x, c.y), cairo_line_to(cr_, d.x, d.y);
    }
    cairo_stroke(cr_);
    for (const auto& [id, o] : state_.objects)
      if (state_.shown(o) && isOverlay(o)) overlayObject(o);
    panels();
    cairo_restore(cr_);
  }

  void overlayObject(const DtEmulatorObject& o) {
    const auto first = anchorPoint(o, 0);
    if (!first) return;
    const Point at = screen((*first)[0], (*first)[1]);
    const double perUnit = kPane / 2;
    switch (o.type) {
      case DtVdc2DLine:
      case DtVdc2DSegmentedLine: {
        const auto second = anchorPoint(o, 1);
        if (second) drawSegments(cr_, at, screen((*second)[0], (*second)[1]), o.segments);
        break;
      }
      case DtVdcCircle:
      case DtVdcSquare: {
        cairo_save(cr_);
        cairo_translate(cr_, at.x, at.y);
        cairo_rotate(cr_, -clampFar(o.rotation[2]) * kPi / 180);
        const double w = std::clamp(std::fabs(o.scale[0]) * perUnit, 0.0, kFar);
        const double h = std::clamp(std::fabs(o.scale[1]) * perUnit, 0.0, kFar);
        if (o.type == DtVdcCircle) {
          if (w > 0 && h > 0) {
            cairo_save(cr_);
            cairo_scale(cr_, w / 2, h / 2);
            cairo_arc(cr_, 0, 0, 1, 0, 2 * kPi);
            cairo_restore(cr_);
          }
        } else {
          cairo_rectangle(cr_, -w / 2, -h / 2, w, h);
        }
        fillAndStroke(o);
        cairo_restore(cr_);
        break;
      }
      case DtVdc2DTriangle: {
        // Corners relative to the anchor, scaled, and turned by the rotation's third angle (degrees).
        const double sx = o.scale[0] == 0 && o.scale[1] == 0 ? 1 : o.scale[0];
        const double sy = o.scale[0] == 0 && o.scale[1] == 0 ? 1 : o.scale[1];
        cairo_save(cr_);
        cairo_translate(cr_, at.x, at.y);
        cairo_rotate(cr_, -clampFar(o.rotation[2]) * kPi / 180);
        for (std::size_t i = 0; i < o.points.size(); ++i) {
          const double x = clampFar(o.points[i][0] * sx * perUnit / 2),
                       y = clampFar(-o.points[i][1] * sy * perUnit / 2);
          i == 0 ? cairo_move_to(cr_, x, y) : cairo_line_to(cr_, x, y);
        }
        cairo_close_path(cr_);
        fillAndStroke(o);
        cairo_restore(cr_);
        break;
      }
      case DtVdc2DText:
        setColor(cr_, o.color);
        text(cr_, at.x, at.y, o.text, 15);
        break;
      default:
        break;
    }
    if (o.flashing) flashMarker(cr_, at);
  }

  void fillAndStroke(const DtEmulatorObject& o) {
    if (o.fill) {
      setColor(cr_, o.color, 0.45);
      cairo_fill_preserve(cr_);
    }
    setColor(cr_, o.color);
    cairo_set_line_width(cr_, 2);
    cairo_stroke(cr_);
  }

  // Attribute panels: one card per attribute group, in the overlay's top right corner, listing each attribute
  // of its layout with its value (bars for value bars).
  void panels() {
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
      cairo_set_source_rgba(cr_, 1, 1, 1, 0.92);
      cairo_rectangle(cr_, left, y, 218, height);
      cairo_fill_preserve(cr_);
      setColor(cr_, o.color);
      cairo_set_line_width(cr_, 2);
      cairo_stroke(cr_);
      const auto templ = state_.objects.find(o.attributeGroupId);
      const std::string title =
          "panel " + std::to_string(id) +
          (templ != state_.objects.end() ? " (" + printable(templ->second.text, 20) + ")" : "");
      cairo_set_source_rgb(cr_, 0.1, 0.1, 0.1);
      text(cr_, left + 8, y + 17, title, 12, true);
      if (o.flashing) flashMarker(cr_, {left + 206, y + 12});
      double row = y + 36;
      for (std::size_t i = 0; i < rows.size() && i < 12; ++i, row += 18) {
        const auto [attribute, def] = rows[i];
        const auto value = o.values.find(attribute);
        const DtEmulatorAttributeValue v =
            value == o.values.end() ? DtEmulatorAttributeValue{} : value->second;
        std::string shown = !v.set                              ? "-"
                            : def->type == DtVdcAttributeBitmap ? "[" + printable(v.text, 16) + "]"
                            : def->type == DtVdcAttributeGraphicListValue
                                ? "(" + number(v.x) + ", " + number(v.y) + ")"
                            : def->type == DtVdcAttributeNoValue ? ""
                                                                 : number(v.x);
        cairo_set_source_rgb(cr_, 0.2, 0.2, 0.2);
        text(cr_, left + 8, row, printable(def->name, 16), 11);
        if (def->type == DtVdcAttributeGraphicSingleValue && def->hasRange && def->rangeMax > def->rangeMin) {
          const double t = std::clamp((v.x - def->rangeMin) / (def->rangeMax - def->rangeMin), 0.0, 1.0);
          cairo_set_source_rgb(cr_, 0.85, 0.85, 0.85);
          cairo_rectangle(cr_, left + 110, row - 10, 100, 10);
          cairo_fill(cr_);
          setColor(cr_, o.color);
          cairo_rectangle(cr_, left + 110, row - 10, 100 * (finite(t) ? t : 0), 10);
          cairo_fill(cr_);
        } else {
          text(cr_, left + 110, row, shown, 11);
        }
      }
      y += height + 10;
    }
  }

  void mapPane() {
    layoutMap();
    frame(kMapLeft, "top-down map of the 3D objects (x right, y up)");
    cairo_save(cr_);
    cairo_rectangle(cr_, kMapLeft, kTop, kPane, kPane);
    cairo_clip(cr_);
    for (const auto& [id, o] : state_.objects)
      if (state_.shown(o) && !isOverlay(o)) mapObject(o);
    for (const auto& [name, p] : entities_) {
      const Point at = world(p.x, p.y);
      cairo_set_source_rgb(cr_, 0.25, 0.25, 0.55);
      cairo_move_to(cr_, at.x, at.y - 8);
      cairo_line_to(cr_, at.x + 8, at.y);
      cairo_line_to(cr_, at.x, at.y + 8);
      cairo_line_to(cr_, at.x - 8, at.y);
      cairo_close_path(cr_);
      cairo_set_line_width(cr_, 1.5);
      cairo_stroke(cr_);
      text(cr_, at.x + 10, at.y + 4, "entity " + name, 11);
    }
    eyePoint();
    scaleBar();
    cairo_restore(cr_);
  }

  void mapObject(const DtEmulatorObject& o) {
    switch (o.viewerCommand) {
      case DtVcDrawLine:
      case DtVcDrawSegmentedLine: {
        const auto a = placed(o, 0), b = placed(o, 1);
        if (a && b) drawSegments(cr_, *a, *b, o.segments);
        if (a && o.flashing) flashMarker(cr_, *a);
        return;
      }
      case DtVdcTriangle:
      case DtVdcArea: {
        if (o.points.empty()) return;
        for (std::size_t i = 0; i < o.points.size(); ++i) {
          const Point p = world(o.points[i]);
          i == 0 ? cairo_move_to(cr_, p.x, p.y) : cairo_line_to(cr_, p.x, p.y);
        }
        cairo_close_path(cr_);
        setColor(cr_, o.color, 0.35);
        cairo_fill_preserve(cr_);
        setColor(cr_, o.color);
        cairo_set_line_width(cr_, 2);
        cairo_stroke(cr_);
        const Point label = world(o.points[0]);
        if (!o.textureFilename.empty()) {
          cairo_set_source_rgb(cr_, 0.2, 0.2, 0.2);
          text(cr_, label.x + 4, label.y - 4, "texture " + o.textureFilename, 10);
        }
        if (o.flashing) flashMarker(cr_, label);
        return;
      }
      case DtVdcPolyObject: {
        const auto a = placed(o, 0);
        if (!a) return;
        const double sx = std::clamp(std::fabs(o.scale[0]) * scale_, 2.0, kFar);
        const double sy = std::clamp(std::fabs(o.scale[1]) * scale_, 2.0, kFar);
        cairo_save(cr_);
        cairo_translate(cr_, a->x, a->y);
        const auto b = placed(o, 1);
        if (o.type == DtVdcCylinder && b) {
          // A cylinder between two anchors: a band as wide as its first diameter.
          cairo_restore(cr_);
          setColor(cr_, o.color, 0.6);
          cairo_set_line_width(cr_, std::clamp(std::fabs(o.scale[1]) * scale_, 3.0, 60.0));
          cairo_set_line_cap(cr_, CAIRO_LINE_CAP_ROUND);
          cairo_move_to(cr_, a->x, a->y);
          cairo_line_to(cr_, b->x, b->y);
          cairo_stroke(cr_);
          cairo_set_line_cap(cr_, CAIRO_LINE_CAP_BUTT);
          if (o.flashing) flashMarker(cr_, *a);
          return;
        }
        // The map looks down, so only the heading (psi, radians) turns a solid; heading 0 points up.
        cairo_rotate(cr_, finite(o.rotation[0]) ? o.rotation[0] : 0);
        if (o.type == DtVdcSphere || o.type == DtVdcCircle) {
          cairo_save(cr_);
          cairo_scale(cr_, sx / 2, sy / 2);
          cairo_arc(cr_, 0, 0, 1, 0, 2 * kPi);
          cairo_restore(cr_);
        } else if (o.type == DtVdcCylinder) {
          cairo_rectangle(cr_, -sy / 2, -sx / 2, sy, sx);  // its length along the heading
        } else {
          cairo_rectangle(cr_, -sx / 2, -sy / 2, sx, sy);
        }
        setColor(cr_, o.color, 0.4);
        cairo_fill_preserve(cr_);
        setColor(cr_, o.color);
        cairo_set_line_width(cr_, 2);
        cairo_stroke(cr_);
        cairo_restore(cr_);
        if (o.flashing) flashMarker(cr_, *a);
        return;
      }
      case DtVdcText: {
        const auto a = placed(o, 0);
        if (!a) return;
        setColor(cr_, o.color);
        cairo_arc(cr_, a->x, a->y, 2.5, 0, 2 * kPi);
        cairo_fill(cr_);
        text(cr_, a->x + 5, a->y - 5, o.text, 13);
        if (o.flashing) flashMarker(cr_, *a);
        return;
      }
      case DtVdcAttribute: {
        if (o.type != DtVdcAttributeGroup) return;
        const auto a = placed(o, 0);
        if (!a) return;
        setColor(cr_, o.color);
        cairo_rectangle(cr_, a->x - 5, a->y - 16, 26, 12);
        cairo_set_line_width(cr_, 1.5);
        cairo_stroke(cr_);
        cairo_move_to(cr_, a->x, a->y);
        cairo_line_to(cr_, a->x - 2, a->y - 4);
        cairo_stroke(cr_);
        text(cr_, a->x + 24, a->y - 6, "panel " + std::to_string(o.id), 10);
        return;
      }
      default:
        return;
    }
  }

  // The eye of the current mode: where it stands and where it looks, or the entity it hangs on.
  void eyePoint() {
    const int mode = state_.view.mode;
    const auto entityAt = [&](const std::string& name) -> std::optional<Point> {
      const auto found = entities_.find(name);
      if (found == entities_.end()) return std::nullopt;
      return world(found->second.x, found->second.y);
    };
    std::optional<Point> eye;
    std::optional<Point> target;
    double heading =
        field("orientation.psi").value_or(field("heading").value_or(field("bodyHeading").value_or(0)));
    if (mode == DtVcAbsolute || mode == DtVcTrack) {
      if (const auto p = vectorField("location")) eye = world(*p);
      if (mode == DtVcTrack) target = entityAt(textField("trackId"));
    } else if (mode == DtVcPivot) {
      if (const auto p = vectorField("pivotPoint")) {
        target = world(*p);
        const double r = field("radius").value_or(0) * scale_;
        eye = Point{target->x - r * std::sin(heading), target->y + r * std::cos(heading)};
        circle(*target, r);
      }
    } else if (mode == DtVcCompass || mode == DtVcOrbit) {
      if (const auto centre = entityAt(textField("attachId"))) {
        const double r = std::max(field("radius").value_or(0) * scale_, 12.0);
        circle(*centre, r);
        eye = Point{centre->x - r * std::sin(heading), centre->y + r * std::cos(heading)};
        target = centre;
      }
    } else if (mode == DtVcGroup) {
      double sx = 0, sy = 0;
      int n = 0;
      for (const std::string& member : state_.view.group)
        if (const auto p = entityAt(member)) sx += p->x, sy += p->y, ++n;
      if (n > 0) {
        target = Point{sx / n, sy / n};
        eye = Point{target->x, target->y + std::max(field("radialOffset").value_or(0) * scale_, 20.0)};
        circle(*target, 30);
      }
    } else if (const auto attached = entityAt(textField("attachId"))) {
      const char* offset = mode == DtVcTether ? "topoUpOffset" : "offset";
      const auto o = vectorField(offset);
      eye = Point{attached->x + (o ? (*o)[0] * scale_ : 0), attached->y - (o ? (*o)[1] * scale_ : 0)};
      target = entityAt(textField("trackId"));
      if (!target) target = Point{eye->x + 30 * std::sin(heading), eye->y - 30 * std::cos(heading)};
    }
    const auto& moved = state_.view.eye.fields;
    if (moved.count("position.x") && moved.count("position.y")) {
      const Point m = world(moved.at("position.x"), moved.at("position.y"));
      cairo_set_source_rgb(cr_, 0.5, 0.1, 0.5);
      cairo_arc(cr_, m.x, m.y, 5, 0, 2 * kPi);
      cairo_fill(cr_);
      text(cr_, m.x + 8, m.y + 14, "eye set by move", 10);
    }
    if (!eye) return;
    cairo_set_source_rgb(cr_, 0.75, 0.05, 0.05);
    if (target) {
      const double dashes[] = {5, 4};
      cairo_set_dash(cr_, dashes, 2, 0);
      cairo_set_line_width(cr_, 1.5);
      cairo_move_to(cr_, eye->x, eye->y);
      cairo_line_to(cr_, target->x, target->y);
      cairo_stroke(cr_);
      cairo_set_dash(cr_, nullptr, 0, 0);
    } else {
      arrowHead(cr_, *eye, Point{eye->x + 30 * std::sin(heading), eye->y - 30 * std::cos(heading)}, 10);
    }
    cairo_arc(cr_, eye->x, eye->y, 7, 0, 2 * kPi);
    cairo_fill(cr_);
    cairo_set_source_rgb(cr_, 1, 1, 1);
    cairo_arc(cr_, eye->x, eye->y, 3, 0, 2 * kPi);
    cairo_fill(cr_);
    cairo_set_source_rgb(cr_, 0.75, 0.05, 0.05);
    text(cr_, eye->x + 10, eye->y - 8, std::string("eye: ") + DtEmulatorModeName(mode), 12, true);
  }

  void circle(Point c, double r) {
    cairo_save(cr_);
    cairo_new_path(cr_);
    cairo_set_source_rgba(cr_, 0.75, 0.05, 0.05, 0.5);
    const double dashes[] = {2, 3};
    cairo_set_dash(cr_, dashes, 2, 0);
    cairo_set_line_width(cr_, 1);
    cairo_arc(cr_, c.x, c.y, std::clamp(r, 1.0, kFar), 0, 2 * kPi);
    cairo_stroke(cr_);
    cairo_restore(cr_);
  }

  void scaleBar() {
    // A round length that is about a fifth of the pane.
    const double target = kPane / 5 / scale_;
    const double step = std::pow(10.0, std::floor(std::log10(target)));
    double length = step;
    for (const double m : {2.0, 5.0, 10.0})
      if (step * m <= target) length = step * m;
    if (!finite(length) || length <= 0) return;
    const double x = kMapLeft + 20, y = kTop + kPane - 20;
    cairo_set_source_rgb(cr_, 0.2, 0.2, 0.2);
    cairo_set_line_width(cr_, 2);
    cairo_move_to(cr_, x, y);
    cairo_line_to(cr_, x + length * scale_, y);
    cairo_stroke(cr_);
    text(cr_, x, y - 6, number(length) + " units", 10);
  }

  void footer() {
    int hidden = 0;
    for (const auto& [id, o] : state_.objects) hidden += state_.shown(o) ? 0 : 1;
    const DtEmulatorCounters& c = state_.counters;
    cairo_set_source_rgb(cr_, 0.3, 0.3, 0.3);
    text(cr_, 30, kTop + kPane + 28,
         std::to_string(state_.objects.size()) + " objects (" + std::to_string(hidden) +
             " hidden, not drawn); " + std::to_string(c.received) + " PDUs received, " +
             std::to_string(c.answered) + " state reports sent. " +
             "Orange rays: flashing. Diamonds: entities, placed symbolically. Red: the eye.",
         11);
  }

  cairo_t* cr_;
  const DtEmulatorState& state_;
  std::map<std::string, Point> entities_;
  double centreX_ = 0;
  double centreY_ = 0;
  double scale_ = 1;
};

cairo_status_t appendTo(void* closure, const unsigned char* data, unsigned int length) {
  static_cast<std::string*>(closure)->append(reinterpret_cast<const char*>(data), length);
  return CAIRO_STATUS_SUCCESS;
}

void drawOn(cairo_surface_t* surface, const DtEmulatorState& state) {
  cairo_t* cr = cairo_create(surface);
  Picture(cr, state).draw();
  cairo_destroy(cr);
}

}  // namespace

std::string DtEmulatorPictureSvg(const DtEmulatorState& state) {
  std::string out;
  cairo_surface_t* surface = cairo_svg_surface_create_for_stream(&appendTo, &out, kWidth, kHeight);
  drawOn(surface, state);
  cairo_surface_finish(surface);
  cairo_surface_destroy(surface);
  return out;
}

std::string DtEmulatorPicturePng(const DtEmulatorState& state) {
  std::string out;
  cairo_surface_t* surface =
      cairo_image_surface_create(CAIRO_FORMAT_RGB24, static_cast<int>(kWidth), static_cast<int>(kHeight));
  drawOn(surface, state);
  cairo_surface_flush(surface);
  cairo_surface_write_to_png_stream(surface, &appendTo, &out);
  cairo_surface_destroy(surface);
  return out;
}

bool DtWriteEmulatorPicture(const DtEmulatorState& state, const std::string& path) {
  const auto endsWith = [&](const char* suffix) {
    const std::string s = suffix;
    return path.size() >= s.size() && path.compare(path.size() - s.size(), s.size(), s) == 0;
  };
  std::string bytes;
  if (endsWith(".svg")) {
    bytes = DtEmulatorPictureSvg(state);
  } else if (endsWith(".png")) {
    bytes = DtEmulatorPicturePng(state);
  } else {
    return false;
  }
  std::ofstream out(path, std::ios::binary);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return static_cast<bool>(out);
}
