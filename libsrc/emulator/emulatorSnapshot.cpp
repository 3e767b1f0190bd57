#include "vistralemulator/emulatorSnapshot.h"

#include <cstdio>
#include <fstream>
#include <nlohmann/json.hpp>

#include "tarvex/dtViewerCommand.h"
#include "vistralcontrol/moveVcPdu.h"
#include "vistralcontrol/vdcAttachablePdu.h"
#include "vistralcontrol/vistralDrawControlPdu.h"

using nlohmann::json;

namespace {

json valueJson(const DtEmulatorValue& value) {
  return std::visit([](const auto& v) { return json(v); }, value);
}

json fieldsJson(const std::map<std::string, DtEmulatorValue>& fields) {
  json out = json::object();
  for (const auto& [name, value] : fields) out[name] = valueJson(value);
  return out;
}

json vecJson(const DtEmulatorVec& v) { return json::array({v[0], v[1], v[2]}); }
json colorJson(const DtEmulatorColor& c) { return json::array({c.r, c.g, c.b, c.a}); }

std::string hex(const std::vector<std::uint8_t>& bytes) {
  static const char* const kDigits = "0123456789abcdef";
  std::string out;
  out.reserve(bytes.size() * 2);
  for (const std::uint8_t b : bytes) {
    out += kDigits[b >> 4];
    out += kDigits[b & 15];
  }
  return out;
}

// As text: a JSON number that large is not read exactly everywhere.
std::string digestText(std::uint64_t digest) {
  char text[17];
  std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(digest));
  return text;
}

const char* directionName(int direction) {
  static const char* const kNames[] = {"LEFT", "RIGHT", "UP", "DOWN", "FORWARDS", "BACKWARDS"};
  return direction >= 0 && direction < 6 ? kNames[direction] : "none";
}

json viewJson(const DtEmulatorState& state) {
  const DtEmulatorViewState& view = state.view;
  json out;
  out["mode"] = view.mode;
  out["modeName"] = DtEmulatorModeName(view.mode);
  const auto current = view.modes.find(view.mode);
  out["parameters"] = current == view.modes.end() ? json::object() : fieldsJson(current->second.fields);
  json modes = json::object();
  for (const auto& [command, mode] : view.modes) modes[DtEmulatorModeName(command)] = fieldsJson(mode.fields);
  out["modes"] = modes;
  out["group"] = view.group;
  out["primary"] = view.primary;
  out["secondary"] = view.secondary;
  json eye;
  for (const auto& [name, value] : view.eye.fields) eye[name] = value;
  eye["steps"] = view.eye.steps;
  eye["lastMove"] = directionName(view.eye.lastMove);
  eye["lastTurn"] = directionName(view.eye.lastTurn);
  eye["resets"] = view.eye.resets;
  out["eye"] = eye;
  return out;
}

json objectJson(const DtEmulatorState& state, const DtEmulatorObject& o) {
  json out;
  out["id"] = o.id;
  out["kind"] = DtEmulatorKindName(o.viewerCommand);
  out["viewerCommand"] = o.viewerCommand;
  out["type"] = o.type;
  out["typeName"] = DtVistralDrawControlPdu::typeString(o.type);
  out["visible"] = o.visible;
  out["shown"] = state.shown(o);
  out["layers"] = o.layers;
  out["pduCount"] = o.pduCount;
  out["lastPdu"] = hex(o.lastPdu.bytes());
  if (o.attachable) {
    const DtEmulatorAnchor& a = o.anchor;
    out["attachment"] = {
        {"type", a.attachment},
        {"typeName", DtVdcAttachablePdu::typeString(static_cast<DtVdcAttachablePdu::DtVcObjectAttachment>(
                         static_cast<unsigned char>(a.attachment)))},
        {"positions", json::array({vecJson(a.positions[0]), vecJson(a.positions[1])})},
        {"entities", a.entities},
        {"objects", a.objects},
        {"relativeLocations", a.relativeLocations},
        {"offset", vecJson(a.offset)}};
    out["color"] = colorJson(o.color);
    out["flashing"] = o.flashing;
  }
  switch (o.viewerCommand) {
    case DtVcDrawLine:
    case DtVcDrawSegmentedLine: {
      json segments = json::array();
      for (const DtEmulatorSegment& s : o.segments)
        segments.push_back({{"color", colorJson(s.color)},
                            {"pattern", s.pattern},
                            {"thickness", s.thickness},
                            {"arrowStyle", s.arrowStyle},
                            {"appearance", s.appearance},
                            {"percentage", s.percentage}});
      out["segments"] = segments;
      out["checkLos"] = o.checkLos;
      out["projected"] = o.projected;
      break;
    }
    case DtVdcText:
      out["text"] = o.text;
      break;
    case DtVdcLayer:
      out["name"] = o.text;
      break;
    case DtVdcAttribute: {
      out["name"] = o.text;
      out["attributeGroupId"] = o.attributeGroupId;
      out["hasRange"] = o.hasRange;
      out["range"] = json::array({o.rangeMin, o.rangeMax});
      json values = json::object();
      for (const auto& [id, v] : o.values)
        values[std::to_string(id)] = {{"x", v.x}, {"y", v.y}, {"text", v.text}, {"set", v.set}};
      out["values"] = values;
      out["hiddenAttributes"] = o.hiddenAttributes;
      break;
    }
    default:
      break;
  }
  if (o.viewerCommand == DtVdcPolyObject || o.viewerCommand == DtVdcTriangle ||
      o.viewerCommand == DtVdcArea) {
    out["fill"] = o.fill;
    out["pattern"] = o.pattern;
    out["scale"] = vecJson(o.scale);
    out["rotation"] = vecJson(o.rotation);
  }
  if (o.viewerCommand == DtVdcTriangle || o.viewerCommand == DtVdcArea) {
    json points = json::array();
    for (const DtEmulatorVec& p : o.points) points.push_back(vecJson(p));
    out["points"] = points;
  }
  if (o.viewerCommand == DtVdcArea) {
    out["textureDirectory"] = o.textureDirectory;
    out["textureFilename"] = o.textureFilename;
    out["textureTiles"] = o.textureTiles;
  }
  return out;
}

}  // namespace

const char* DtEmulatorModeName(int command) { return DtEnumString(static_cast<DtViewerCommand>(command)); }

const char* DtEmulatorKindName(int viewerCommand) {
  switch (viewerCommand) {
    case DtVcDrawLine:
    case DtVcDrawSegmentedLine:
      return "line";
    case DtVdcPolyObject:
      return "polyObject";
    case DtVdcTriangle:
      return "triangle";
    case DtVdcArea:
      return "area";
    case DtVdcText:
      return "text";
    case DtVdcAttribute:
      return "attribute";
    case DtVdcLayer:
      return "layer";
    default:
      return "unknown";
  }
}

std::string DtEmulatorSnapshotJson(const DtEmulatorState& state) {
  json out;
  out["viewerId"] = state.viewerId;
  out["view"] = viewJson(state);
  out["options"] = fieldsJson(state.options);
  json objects = json::object();
  for (const auto& [id, object] : state.objects) objects[std::to_string(id)] = objectJson(state, object);
  out["objects"] = objects;
  json templates = json::object();
  for (const auto& [templateId, defs] : state.attributeTemplates) {
    json entry = json::object();
    for (const auto& [id, def] : defs)
      entry[std::to_string(id)] = {{"type", def.type},
                                   {"typeName", DtVistralDrawControlPdu::typeString(def.type)},
                                   {"name", def.name},
                                   {"hasRange", def.hasRange},
                                   {"range", json::array({def.rangeMin, def.rangeMax})}};
    templates[std::to_string(templateId)] = entry;
  }
  out["attributeTemplates"] = templates;
  const DtEmulatorCounters& c = state.counters;
  out["counters"] = {{"received", c.received},
                     {"ignored", c.ignored},
                     {"answered", c.answered},
                     {"unknownTargets", c.unknownTargets},
                     {"digest", digestText(c.digest)}};
  return out.dump(2, ' ', false, json::error_handler_t::replace);
}

bool DtWriteEmulatorSnapshot(const DtEmulatorState& state, const std::string& path) {
  std::ofstream out(path, std::ios::binary);
  out << DtEmulatorSnapshotJson(state) << "\n";
  return static_cast<bool>(out);
}
