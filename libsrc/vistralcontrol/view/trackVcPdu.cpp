#include "vistralcontrol/trackVcPdu.h"

#include "core/vcText.h"
#include "tarvex/dtDump.h"
#include "vcViewLayout.h"

using VcLayout::Track;

namespace {
constexpr VcText::AttachForm kForm{1, "lll", 1};
}  // namespace

DtTrackVCPdu::DtTrackVCPdu(DtBufferPlaceHolder* holder) {
  static_assert(decltype(storage_)::kCapacity == Track::length, "storage for the image");
  useStorage(storage_);
  initPdu(Track::length, holder);
  setViewerCommand(DtVcTrack);
}

DtTrackVCPdu::DtTrackVCPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder,
                           DtPduFactory* factory) {
  useStorage(storage_);
  initPdu(image, holder, factory);
}

DtTrackVCPdu::~DtTrackVCPdu() = default;

const DtVector64& DtTrackVCPdu::worldLocation() const {
  location_ = f64VectorAt(Track::worldLocation);
  return location_;
}
void DtTrackVCPdu::setWorldLocation(const DtVector64& location) {
  setF64VectorAt(Track::worldLocation, location);
}

const DtString& DtTrackVCPdu::trackId() const {
  trackId_ = designatorAt(Track::trackId);
  return trackId_;
}
void DtTrackVCPdu::setTrackId(const DtString& id) { setDesignatorAt(Track::trackId, id); }

const DtString& DtTrackVCPdu::markingText() const {
  markingText_ = VcText::markingText(*this, Track::markingText, Track::length);
  return markingText_;
}
void DtTrackVCPdu::setMarkingText(const DtString& text) {
  setTextAt(Track::markingText, VcLayout::kNameWidth, text.c_str());
}

const char* DtTrackVCPdu::string() const {
  const DtVector64 l = worldLocation();
  VcText::Writer out(textBuffer(), kTextBufferSize);
  return VcText::writeAttachForm(out, {trackId().c_str()}, {l.x(), l.y(), l.z()}, {markingText().c_str()});
}

void DtTrackVCPdu::setFromString(const char* text) {
  if (text == nullptr) return;
  const VcText::AttachFields f = VcText::parseAttachForm(*this, text, kForm);
  setTrackId(f.ids[0]);
  setWorldLocation(DtVector64(f.numbers[0], f.numbers[1], f.numbers[2]));
  setMarkingText(f.marks[0]);
}

void DtTrackVCPdu::printData() const {
  DtVistralControlPdu::printData();
  DtDumpString("TrackId:", trackId().c_str());
  DtDumpString("TrackId (MarkingText):", markingText().c_str());
  DtDumpString("WorldLocation:", worldLocation().string());
}
