// The painter: Cairo's SVG and image surfaces take the same calls, so one routine paints a scene onto both.
// Every placement is the scene's; this file only turns its shapes and labels into drawing calls.
#include "vistralemulator/emulatorPicture.h"

#include <cairo-svg.h>
#include <cairo.h>

#include <cmath>
#include <fstream>

#include "vistralemulator/emulatorScene.h"

namespace {

constexpr double kPi = 3.14159265358979323846;

void setColor(cairo_t* cr, const DtEmulatorSceneColor& c) { cairo_set_source_rgba(cr, c.r, c.g, c.b, c.a); }

void paintLabel(cairo_t* cr, const DtEmulatorSceneLabel& l) {
  setColor(cr, l.color);
  cairo_select_font_face(cr, "sans-serif", CAIRO_FONT_SLANT_NORMAL,
                         l.bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
  cairo_set_font_size(cr, l.size);
  cairo_move_to(cr, l.at.x, l.at.y);
  cairo_show_text(cr, l.text.c_str());
  cairo_new_path(cr);  // show_text leaves a current point that the next shape would join with a line
}

void paintShape(cairo_t* cr, const DtEmulatorSceneShape& s) {
  using Form = DtEmulatorSceneShape::Form;
  if (s.points.empty()) return;
  if (s.form == Form::ellipse) {
    if (s.rx <= 0 || s.ry <= 0) return;
    cairo_save(cr);
    cairo_translate(cr, s.points[0].x, s.points[0].y);
    cairo_rotate(cr, s.rotation);
    cairo_scale(cr, s.rx, s.ry);
    cairo_arc(cr, 0, 0, 1, 0, 2 * kPi);
    cairo_restore(cr);
  } else {
    cairo_move_to(cr, s.points[0].x, s.points[0].y);
    for (std::size_t i = 1; i < s.points.size(); ++i) cairo_line_to(cr, s.points[i].x, s.points[i].y);
    if (s.form == Form::polygon) cairo_close_path(cr);
  }
  if (s.form != Form::polyline && s.fill.a > 0) {
    setColor(cr, s.fill);
    cairo_fill_preserve(cr);
  }
  if (s.stroke.a > 0 && s.width > 0) {
    setColor(cr, s.stroke);
    cairo_set_line_width(cr, s.width);
    cairo_set_dash(cr, s.dashes.empty() ? nullptr : s.dashes.data(), static_cast<int>(s.dashes.size()), 0);
    cairo_set_line_cap(cr, s.roundCaps ? CAIRO_LINE_CAP_ROUND : CAIRO_LINE_CAP_BUTT);
    cairo_stroke(cr);
  }
  cairo_new_path(cr);
}

void paintPane(cairo_t* cr, const DtEmulatorScenePane& pane) {
  cairo_save(cr);
  cairo_rectangle(cr, pane.left, pane.top, pane.width, pane.height);
  cairo_clip(cr);
  for (const DtEmulatorSceneShape& s : pane.shapes) paintShape(cr, s);
  for (const DtEmulatorSceneLabel& l : pane.labels) paintLabel(cr, l);
  cairo_restore(cr);
}

void paint(cairo_surface_t* surface, const DtEmulatorScene& scene) {
  cairo_t* cr = cairo_create(surface);
  cairo_set_source_rgb(cr, 1, 1, 1);
  cairo_paint(cr);
  paintPane(cr, scene.overlay);
  paintPane(cr, scene.map);
  for (const DtEmulatorSceneLabel& l : scene.labels) paintLabel(cr, l);
  cairo_destroy(cr);
}

cairo_status_t appendTo(void* closure, const unsigned char* data, unsigned int length) {
  static_cast<std::string*>(closure)->append(reinterpret_cast<const char*>(data), length);
  return CAIRO_STATUS_SUCCESS;
}

}  // namespace

std::string DtEmulatorPictureSvg(const DtEmulatorState& state) {
  const DtEmulatorScene scene = DtBuildEmulatorScene(state);
  std::string out;
  cairo_surface_t* surface = cairo_svg_surface_create_for_stream(&appendTo, &out, scene.width, scene.height);
  paint(surface, scene);
  cairo_surface_finish(surface);
  cairo_surface_destroy(surface);
  return out;
}

std::string DtEmulatorPicturePng(const DtEmulatorState& state) {
  const DtEmulatorScene scene = DtBuildEmulatorScene(state);
  std::string out;
  cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, static_cast<int>(scene.width),
                                                        static_cast<int>(scene.height));
  paint(surface, scene);
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
