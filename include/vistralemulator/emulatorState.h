// What a headless viewer holds after the control PDUs it has taken: its viewing mode with the parameters of
// each mode, its options, its entity group and eye point, and the overlay objects drawn by id. Plain data
// with no drawing code: the picture and snapshot writers read it, tests compare it.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <variant>
#include <vector>

#include "vistralemulator/vistralEmulatorExport.h"

// A parameter or option value as the viewer keeps it: a flag, a whole number, a number or a text.
using DtEmulatorValue = std::variant<bool, long long, double, std::string>;
using DtEmulatorVec = std::array<double, 3>;

// The names under which modes keep their fields (DtEmulatorModeState::fields) and the eye its place
// (DtEmulatorEye::fields). A vector keeps each component under its name and a part ("location" + x:
// "location.x"), angles each angle ("orientation" + psi: "orientation.psi").
namespace DtEmulatorField {
// Vectors: a position, a pivot point, the offsets of the modes that ride with an entity, the eye's position.
inline constexpr char location[] = "location";
inline constexpr char pivotPoint[] = "pivotPoint";
inline constexpr char offset[] = "offset";
inline constexpr char topoUpOffset[] = "topoUpOffset";
inline constexpr char position[] = "position";
// Angles: an orientation, a mimicking body's orientation.
inline constexpr char orientation[] = "orientation";
inline constexpr char bodyOrientation[] = "bodyOrientation";
// The parts of a vector and of angles.
inline constexpr char x[] = ".x";
inline constexpr char y[] = ".y";
inline constexpr char z[] = ".z";
inline constexpr char psi[] = ".psi";
inline constexpr char theta[] = ".theta";
inline constexpr char phi[] = ".phi";
// The entities a mode follows or looks at, with their marking texts.
inline constexpr char attachId[] = "attachId";
inline constexpr char markingText[] = "markingText";
inline constexpr char attachMarkingText[] = "attachMarkingText";
inline constexpr char trackId[] = "trackId";
inline constexpr char trackMarkingText[] = "trackMarkingText";
// Numbers of the orbit, compass, pivot and group modes.
inline constexpr char radius[] = "radius";
inline constexpr char heading[] = "heading";
inline constexpr char bodyHeading[] = "bodyHeading";
inline constexpr char pitch[] = "pitch";
inline constexpr char roll[] = "roll";
inline constexpr char headingOffset[] = "headingOffset";
inline constexpr char pitchOffset[] = "pitchOffset";
inline constexpr char azimuthRate[] = "azimuthRate";
inline constexpr char radialOffset[] = "radialOffset";
inline constexpr char groupCmd[] = "groupCmd";
}  // namespace DtEmulatorField

// The parameters one viewing mode has been given, by field name ("radius", "location.x", "attachId"). A
// field is present once a command carried it with its ignore bit clear; it keeps that value until another
// command of the mode carries it again.
struct DtEmulatorModeState {
  // By field name, only the fields the mode was ever given.
  std::map<std::string, DtEmulatorValue> fields;
};

// The eye point as move commands set it, and the step commands heard (the emulator has no scene to step
// through, so it counts them and keeps the directions they named).
struct DtEmulatorEye {
  std::map<std::string, double> fields;  // "position.x", ..., "orientation.psi", ...
  // Move commands heard, the last move and turn directions (-1 before any), and resets.
  int steps = 0;
  int lastMove = -1;
  int lastTurn = -1;
  int resets = 0;
};

// How the viewer looks at the scene: its mode, every mode's parameters, its group and its eye point.
struct DtEmulatorViewState {
  int mode = 0;  // the viewer command of the current mode; a viewer starts in absolute mode
  std::map<int, DtEmulatorModeState> modes;  // by viewer command, every mode ever commanded
  std::vector<std::string> group;            // entities of the viewed group (group mode and modeless lists)
  // The modeless commands' entities, and the eye point as move commands left it.
  std::string primary;
  std::string secondary;
  DtEmulatorEye eye;
};

// A colour as a PDU carried it, 0 to 255 per channel.
struct DtEmulatorColor {
  // Red, green, blue and alpha.
  int r = 255, g = 255, b = 255, a = 255;
};

// Where an attachable object is anchored, as its PDU says.
struct DtEmulatorAnchor {
  // The attachment type, then per anchor (start and end) its world position, entity id, object id and
  // relative location, and the offset from it.
  int attachment = 0;
  std::array<DtEmulatorVec, 2> positions{};
  std::array<std::string, 2> entities;
  std::array<std::uint32_t, 2> objects{};
  std::array<int, 2> relativeLocations{};
  DtEmulatorVec offset{};
};

// One segment of a drawn line, as its PDU's segment table gave it.
struct DtEmulatorSegment {
  // The segment's colour, dash pattern, thickness, arrow style, appearance and share of the line in percent.
  DtEmulatorColor color;
  std::uint32_t pattern = 0xFFFFFFFF;
  int thickness = 1;
  int arrowStyle = 0;
  int appearance = 0;
  int percentage = 100;
};

// A value of one attribute of a panel, as attribute updates left it.
struct DtEmulatorAttributeValue {
  // The numbers and the text of the value, and whether an update has set it.
  double x = 0;
  double y = 0;
  std::string text;
  bool set = false;
};

// One attribute of a panel layout (an attribute template), kept under its group template.
struct DtEmulatorAttributeDef {
  // The attribute's type, name and, for value bars, range.
  int type = 0;
  std::string name;
  bool hasRange = false;
  double rangeMin = 0;
  double rangeMax = 0;
};

// A PDU image as the viewer keeps it. Runs of zero bytes, which the fixed-size texts, entity ids and tables
// of draw PDUs leave plenty of, are stored as their length only, so that a scene of a million objects keeps
// each one's last PDU at a fraction of its size.
class VISTRAL_EMULATOR_EXPORT DtEmulatorImage {
 public:
  // An empty image.
  DtEmulatorImage() = default;
  // A copy of size bytes at data.
  DtEmulatorImage(const std::uint8_t* data, std::size_t size);
  // Replaces the image with a copy of size bytes at data.
  void assign(const std::uint8_t* data, std::size_t size);
  // The image's length in bytes, and whether it has none.
  std::size_t size() const { return size_; }
  bool empty() const { return size_ == 0; }
  // The image's bytes as they arrived.
  std::vector<std::uint8_t> bytes() const;
  // The bytes it keeps for them.
  std::size_t packedSize() const { return packed_.size(); }

 private:
  std::vector<std::uint8_t> packed_;
  std::size_t size_ = 0;
};

// One drawn object: what kind it is, the last PDU that described it and what that PDU said, and what the
// commands since did to it.
struct DtEmulatorObject {
  // The object id the drawer gave it.
  std::uint32_t id = 0;
  int viewerCommand = 0;  // the PDU class: 2520 line, 2540 poly object, 2550 triangle, ...
  int type = 0;           // the draw-object type
  // The image of the last PDU that described it, as it arrived.
  DtEmulatorImage lastPdu;
  int pduCount = 0;  // PDUs that have described it (the first and every update)
  // False after a hide command, true after a show command (DtEmulatorState::shown also asks its layers), and
  // the layers it belongs to.
  bool visible = true;
  std::set<std::uint32_t> layers;

  // Anchored in the world (attachable PDUs), where, and how it is drawn.
  bool attachable = false;
  DtEmulatorAnchor anchor;
  DtEmulatorColor color;
  bool flashing = false;

  std::vector<DtEmulatorSegment> segments;  // lines
  // Line flags of the current layout.
  bool checkLos = false;
  bool projected = false;

  bool fill = false;  // poly objects, triangles, areas
  // Fill pattern, scale and the corner or outline points of shapes and areas.
  std::uint32_t pattern = 0;
  DtEmulatorVec scale{};
  DtEmulatorVec rotation{};  // psi, theta, phi
  std::vector<DtEmulatorVec> points;
  // An area's texture: its folder, file and tile count.
  std::string textureDirectory;
  std::string textureFilename;
  int textureTiles = 0;

  std::string text;  // a text's string, a layer's or an attribute's name

  std::uint32_t attributeGroupId = 0;  // attribute panels: the group template a group or template belongs to
  // A value bar's range, for attribute templates.
  bool hasRange = false;
  double rangeMin = 0;
  double rangeMax = 0;
  std::map<std::uint32_t, DtEmulatorAttributeValue> values;  // a group's values by attribute id
  // Attributes of a panel that a hide command hid.
  std::set<std::uint32_t> hiddenAttributes;
};

// What the emulator has done with the PDUs it received.
struct DtEmulatorCounters {
  long received = 0;        // control PDUs taken
  long ignored = 0;         // PDUs for other viewers, status reports of other viewers, unknown commands
  long answered = 0;        // state reports sent
  long unknownTargets = 0;  // commands and updates naming an object or attribute the viewer does not have
  // A running digest of the images of the control PDUs acted on (not those ignored), in the order they came:
  // two viewers that acted on the same PDUs in the same order hold the same digest, and one PDU lost,
  // repeated or reordered changes it.
  std::uint64_t digest = 0;
};

// Everything the emulated viewer holds, by topic.
struct VISTRAL_EMULATOR_EXPORT DtEmulatorState {
  // The viewer id the emulator answers to, and how it looks at the scene.
  std::string viewerId;
  DtEmulatorViewState view;
  std::map<std::string, DtEmulatorValue> options;  // by option name; only options a PDU carried
  // Drawn objects by object id.
  std::map<std::uint32_t, DtEmulatorObject> objects;
  // Panel layouts: attribute definitions by group template id, then attribute id. Attribute ids are small
  // numbers of their own, so they are not entered among the drawn objects.
  std::map<std::uint32_t, std::map<std::uint32_t, DtEmulatorAttributeDef>> attributeTemplates;
  DtEmulatorCounters counters;

  // Shown: visible itself, and no layer it belongs to is hidden.
  bool shown(const DtEmulatorObject& object) const;
};
