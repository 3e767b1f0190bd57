// Draw-control PDUs as a viewer applies them: objects by id, described by their last PDU; commands that
// remove, hide, show and move objects between layers; attribute panels with their layouts and values.
#include <algorithm>
#include <string>

#include "emulatorApply.h"
#include "vistralcontrol/vdcAreaPdu.h"
#include "vistralcontrol/vdcAttributePdu.h"
#include "vistralcontrol/vdcAttributeUpdatePdu.h"
#include "vistralcontrol/vdcCommandPdu.h"
#include "vistralcontrol/vdcLayerPdu.h"
#include "vistralcontrol/vdcLinePdu.h"
#include "vistralcontrol/vdcTextPdu.h"
#include "vistralcontrol/vdcTrianglePdu.h"

namespace vistralemulator {
namespace {

DtEmulatorVec vec(const DtVector64& v) { return {v.x(), v.y(), v.z()}; }

DtEmulatorColor colorOf(const unsigned char* rgba) {
  if (rgba == nullptr) return {};
  return {rgba[0], rgba[1], rgba[2], rgba[3]};
}

bool isAttributeDefinition(int type) { return type >= DtVdcAttributeNoValue && type <= DtVdcAttributeBitmap; }

void describeAnchor(DtEmulatorObject& fresh, const DtVdcAttachablePdu& a) {
  fresh.attachable = true;
  DtEmulatorAnchor& anchor = fresh.anchor;
  anchor.attachment = a.attachmentType();
  for (int i = 0; i < 2; ++i) {
    anchor.positions[i] = vec(a.position(i));
    anchor.entities[i] = a.attachEntityId(i).c_str();
    anchor.objects[i] = a.attachObjectId(i);
    anchor.relativeLocations[i] = a.relativeLocation(i);
  }
  anchor.offset = vec(a.offset());
  fresh.color = colorOf(a.color());
  fresh.flashing = a.flashing();
}

void describeLine(DtEmulatorObject& fresh, const DtVdcLinePdu& line) {
  for (unsigned i = 0; i < line.numSegments(); ++i) {
    DtEmulatorSegment s;
    s.color = colorOf(line.color(i));
    s.pattern = line.pattern(i);
    s.thickness = line.thickness(i);
    s.arrowStyle = line.arrowStyle(i);
    s.appearance = line.appearance(i);
    s.percentage = line.percentage(i);
    fresh.segments.push_back(s);
  }
  fresh.checkLos = line.checkLos();
  fresh.projected = line.projected();
}

// Poly objects, and the triangles and areas among them.
void describeShape(DtEmulatorObject& fresh, const DtVdcPolyObjectPduBase& poly) {
  fresh.fill = poly.fill();
  fresh.pattern = poly.pattern();
  fresh.scale = vec(poly.scale());
  const DtTaitBryan r = poly.rotation();
  fresh.rotation = {r.psi(), r.theta(), r.phi()};
  if (const auto* triangle = dynamic_cast<const DtVdcTrianglePduBase*>(&poly)) {
    for (int i = 0; i < DtVdcTrianglePduBase::kNumPoints; ++i)
      fresh.points.push_back(vec(triangle->point(i)));
  } else if (const auto* area = dynamic_cast<const DtVdcAreaPduBase*>(&poly)) {
    // The count is one byte and is not bounded by the sixteen places the PDU has.
    const int count = std::min(area->numPoints(), DtVdcAreaPduBase::kMaxPoints);
    for (int i = 0; i < count; ++i) fresh.points.push_back(vec(area->point(i)));
    fresh.textureDirectory = area->textureDirectory().c_str();
    fresh.textureFilename = area->textureFilename().c_str();
    fresh.textureTiles = area->numTextureTiles();
  }
}

// What the PDU says about the object, into a record that keeps only what commands gave it (visibility,
// layers) and, while the object stays the same kind, its panel values.
void describe(DtEmulatorObject& object, const DtVistralDrawControlPdu& pdu) {
  DtEmulatorObject fresh;
  fresh.id = object.id;
  fresh.viewerCommand = pdu.viewerCommand();
  fresh.type = static_cast<int>(pdu.type());
  fresh.lastPdu.assign(pdu.packet(), static_cast<std::size_t>(pdu.length()));
  fresh.pduCount = object.pduCount + 1;
  fresh.visible = object.visible;
  fresh.layers = object.layers;
  if (object.viewerCommand == fresh.viewerCommand && object.type == fresh.type) {
    fresh.values = std::move(object.values);
    fresh.hiddenAttributes = std::move(object.hiddenAttributes);
  }

  // The families nest (every family but layers is attachable, triangles and areas are poly objects), so each
  // PDU is asked only the casts on its own branch.
  if (const auto* a = dynamic_cast<const DtVdcAttachablePdu*>(&pdu)) {
    describeAnchor(fresh, *a);
    if (const auto* line = dynamic_cast<const DtVdcLinePdu*>(a)) {
      describeLine(fresh, *line);
    } else if (const auto* poly = dynamic_cast<const DtVdcPolyObjectPduBase*>(a)) {
      describeShape(fresh, *poly);
    } else if (const auto* text = dynamic_cast<const DtVdcTextPduBase*>(a)) {
      fresh.text = text->text().c_str();
    } else if (const auto* attribute = dynamic_cast<const DtVdcAttributePduBase*>(a)) {
      fresh.text = attribute->name().c_str();
      fresh.attributeGroupId = attribute->attributeGroupId();
      fresh.hasRange = attribute->hasRange();
      fresh.rangeMin = attribute->rangeMin();
      fresh.rangeMax = attribute->rangeMax();
    }
  } else if (const auto* layer = dynamic_cast<const DtVdcLayerPduBase*>(&pdu)) {
    fresh.text = layer->name().c_str();
  }
  object = std::move(fresh);
}

void defineAttribute(DtEmulatorState& state, const DtVdcAttributePduBase& pdu) {
  DtEmulatorAttributeDef& def = state.attributeTemplates[pdu.attributeGroupId()][pdu.objectId()];
  def.type = static_cast<int>(pdu.type());
  def.name = pdu.name().c_str();
  def.hasRange = pdu.hasRange();
  def.rangeMin = pdu.rangeMin();
  def.rangeMax = pdu.rangeMax();
}

DtEmulatorObject* find(DtEmulatorState& state, std::uint32_t id) {
  const auto found = state.objects.find(id);
  return found == state.objects.end() ? nullptr : &found->second;
}

void remove(DtEmulatorState& state, std::uint32_t id) {
  const auto found = state.objects.find(id);
  if (found == state.objects.end()) {
    ++state.counters.unknownTargets;
    return;
  }
  if (found->second.type == DtVdcAttributeGroupTemplate) state.attributeTemplates.erase(id);
  if (found->second.type == DtVdcLayer)
    for (auto& entry : state.objects) entry.second.layers.erase(id);
  state.objects.erase(found);
}

void command(DtEmulatorState& state, const DtVdcCommandPduBase& pdu) {
  const std::uint32_t id = pdu.objectId();
  const int type = static_cast<int>(pdu.type());
  if (type == DtVdcCommandRemove) {
    remove(state, id);
    return;
  }
  // The attribute commands name the panel in the layer id field.
  const bool onAttribute = type >= static_cast<int>(DtVdcCommandShowGroupAttribute) &&
                           type <= static_cast<int>(DtVdcCommandHideTemplateAttribute);
  DtEmulatorObject* target = find(state, onAttribute ? static_cast<std::uint32_t>(pdu.layerId()) : id);
  if (target == nullptr) {
    ++state.counters.unknownTargets;
    return;
  }
  switch (type) {
    case DtVdcCommandHide:
      target->visible = false;
      break;
    case DtVdcCommandShow:
      target->visible = true;
      break;
    case DtVdcCommandAddToLayer:
      target->layers.insert(pdu.layerId());
      break;
    case DtVdcCommandRemoveFromLayer:
      target->layers.erase(pdu.layerId());
      break;
    case DtVdcCommandShowGroupAttribute:
    case DtVdcCommandShowTemplateAttribute:
      target->hiddenAttributes.erase(id);
      break;
    case DtVdcCommandHideGroupAttribute:
    case DtVdcCommandHideTemplateAttribute:
      target->hiddenAttributes.insert(id);
      break;
    default:
      ++state.counters.ignored;
      break;
  }
}

void updateAttribute(DtEmulatorState& state, const DtVdcAttributeUpdatePduBase& pdu) {
  DtEmulatorObject* group = find(state, pdu.groupId());
  if (group == nullptr || group->type != DtVdcAttributeGroup) {
    ++state.counters.unknownTargets;
    return;
  }
  DtEmulatorAttributeValue& value = group->values[pdu.objectId()];
  switch (static_cast<int>(pdu.type())) {
    case DtVdcAttributeValueSet:
      value.x = pdu.valueX();
      value.y = pdu.valueY();
      value.set = true;
      break;
    case DtVdcAttributeValueReset:
      value = DtEmulatorAttributeValue{};
      break;
    case DtVdcAttributeValueSetText:
      value.text = pdu.text().c_str();
      value.set = true;
      break;
    default:
      ++state.counters.ignored;
      break;
  }
}

}  // namespace

void applyDraw(DtEmulatorState& state, const DtVistralDrawControlPdu& pdu) {
  if (const auto* c = dynamic_cast<const DtVdcCommandPduBase*>(&pdu)) {
    command(state, *c);
    return;
  }
  if (const auto* u = dynamic_cast<const DtVdcAttributeUpdatePduBase*>(&pdu)) {
    updateAttribute(state, *u);
    return;
  }
  if (const auto* a = dynamic_cast<const DtVdcAttributePduBase*>(&pdu);
      a != nullptr && isAttributeDefinition(static_cast<int>(a->type()))) {
    defineAttribute(state, *a);
    return;
  }
  const std::uint32_t id = pdu.objectId();
  DtEmulatorObject& object = state.objects[id];
  object.id = id;
  describe(object, pdu);
}

}  // namespace vistralemulator
