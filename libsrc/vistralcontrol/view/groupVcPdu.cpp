#include "vistralcontrol/groupVcPdu.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "core/vcText.h"
#include "tarvex/dtDump.h"
#include "vcEntityLists.h"
#include "vcViewLayout.h"

using VcEntityLists::List;
using VcLayout::Group;

DtGroupVCPdu::DtGroupVCPdu(DtBufferPlaceHolder* holder) {
  static_assert(decltype(storage_)::kCapacity == Group::length + 4 * VcLayout::kNameWidth,
                "storage for the image");
  useStorage(storage_);
  initPdu(Group::length, holder);
  setViewerCommand(DtVcGroup);
}

DtGroupVCPdu::DtGroupVCPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder,
                           DtPduFactory* factory) {
  useStorage(storage_);
  initPdu(image, holder, factory);
}

DtGroupVCPdu::~DtGroupVCPdu() = default;

float DtGroupVCPdu::radialOffset() const { return f32At(Group::radialOffset); }
void DtGroupVCPdu::setRadialOffset(float offset) { setF32At(Group::radialOffset, offset); }
float DtGroupVCPdu::heading() const { return f32At(Group::heading); }
void DtGroupVCPdu::setHeading(float heading) { setF32At(Group::heading, heading); }
float DtGroupVCPdu::pitch() const { return f32At(Group::pitch); }
void DtGroupVCPdu::setPitch(float pitch) { setF32At(Group::pitch, pitch); }
float DtGroupVCPdu::headingOffset() const { return f32At(Group::headingOffset); }
void DtGroupVCPdu::setHeadingOffset(float offset) { setF32At(Group::headingOffset, offset); }
float DtGroupVCPdu::pitchOffset() const { return f32At(Group::pitchOffset); }
void DtGroupVCPdu::setPitchOffset(float offset) { setF32At(Group::pitchOffset, offset); }
int DtGroupVCPdu::groupCmd() const { return static_cast<int>(u32At(Group::groupCmd)); }
void DtGroupVCPdu::setGroupCmd(int command) {
  setU32At(Group::groupCmd, static_cast<std::uint32_t>(command));
}

int DtGroupVCPdu::numEntitiesToRemove() const {
  return VcEntityLists::count(*this, Group::lists, List::Remove);
}
void DtGroupVCPdu::setNumEntitiesToRemove(int count) {
  (void)VcEntityLists::setRemoveCount(*this, Group::lists, count);
}
int DtGroupVCPdu::numEntitiesToAdd() const { return VcEntityLists::count(*this, Group::lists, List::Add); }
void DtGroupVCPdu::setNumEntitiesToAdd(int count) {
  (void)VcEntityLists::setAddCount(*this, Group::lists, count);
}

const DtString& DtGroupVCPdu::entityToRemove(int index) const {
  entity_ = VcEntityLists::entry(*this, Group::lists, List::Remove, index);
  return entity_;
}
void DtGroupVCPdu::setEntityToRemove(int index, const DtString& id) {
  VcEntityLists::setEntry(*this, Group::lists, List::Remove, index, id);
}
const DtString& DtGroupVCPdu::entityToAdd(int index) const {
  entity_ = VcEntityLists::entry(*this, Group::lists, List::Add, index);
  return entity_;
}
void DtGroupVCPdu::setEntityToAdd(int index, const DtString& id) {
  VcEntityLists::setEntry(*this, Group::lists, List::Add, index, id);
}
int DtGroupVCPdu::entitiesToRemoveInImage() const {
  return VcEntityLists::entriesInImage(*this, Group::lists, List::Remove);
}
int DtGroupVCPdu::entitiesToAddInImage() const {
  return VcEntityLists::entriesInImage(*this, Group::lists, List::Add);
}

const char* DtGroupVCPdu::string() const {
  const int removeCount = numEntitiesToRemove();
  const int addCount = numEntitiesToAdd();
  VcText::Writer out(textBuffer(), kTextBufferSize);
  out.append("%d %d %d %f %f %f %f %f ", groupCmd(), removeCount, addCount, radialOffset(), heading(),
             pitch(), headingOffset(), pitchOffset());

  // Entries past the PDU's end read empty and hold no blank, so only those inside it need a look.
  const int removeShown = VcEntityLists::entriesInImage(*this, Group::lists, List::Remove);
  const int addShown = VcEntityLists::entriesInImage(*this, Group::lists, List::Add);
  bool comma = false;
  for (int i = 0; i < removeShown && !comma; ++i) comma = VcText::hasBlank(entityToRemove(i).c_str());
  for (int i = 0; i < addShown && !comma; ++i) comma = VcText::hasBlank(entityToAdd(i).c_str());
  const char separator = comma ? ',' : ' ';

  // Each entry adds at least its separator, so the loops end once the buffer is full.
  for (int i = 0; i < VcEntityLists::usable(removeCount) && !out.full(); ++i)
    out.append("%c%s", separator, entityToRemove(i).c_str());
  for (int i = 0; i < VcEntityLists::usable(addCount) && !out.full(); ++i)
    out.append("%c%s", separator, entityToAdd(i).c_str());
  return out.text();
}

namespace {
// Splits a text at one separator character, as strtok would, without writing into it: runs of separators
// count as one, and leading and trailing ones yield no token.
class Tokens {
 public:
  Tokens(const char* text, char separator) : p_(text), separator_(separator) {}
  bool next(DtString* token) {
    while (*p_ == separator_) ++p_;
    if (*p_ == '\0') return false;
    const char* start = p_;
    while (*p_ != '\0' && *p_ != separator_) ++p_;
    *token = DtString(start, static_cast<std::size_t>(p_ - start));
    return true;
  }

 private:
  const char* p_;
  char separator_;
};
}  // namespace

void DtGroupVCPdu::setFromString(const char* text) {
  if (text == nullptr) return;
  // Fields the text does not give are set to zero; when the numbers do not all scan, the ids are taken from
  // the start of the text. The group command is read only to step over it: the PDU keeps its own, so a
  // text never turns a group into a wide group or back.
  int command = 0, removeCount = 0, addCount = 0, idsAt = 0;
  float radial = 0, headingValue = 0, pitchValue = 0, headingOff = 0, pitchOff = 0;
  std::sscanf(text, "%d %d %d %f %f %f %f %f %n", &command, &removeCount, &addCount, &radial, &headingValue,
              &pitchValue, &headingOff, &pitchOff, &idsAt);
  setRadialOffset(radial);
  setHeading(headingValue);
  setPitch(pitchValue);
  setHeadingOffset(headingOff);
  setPitchOffset(pitchOff);
  setNumEntitiesToRemove(removeCount);
  setNumEntitiesToAdd(addCount);

  const char* ids = text + idsAt;
  Tokens tokens(ids, std::strchr(ids, ',') != nullptr ? ',' : ' ');
  const long long removes = VcEntityLists::usable(removeCount);
  const long long total = removes + VcEntityLists::usable(addCount);
  DtString id;
  for (long long i = 0; i < total && tokens.next(&id); ++i) {
    if (i < removes) {
      setEntityToRemove(static_cast<int>(i), id);
    } else {
      setEntityToAdd(static_cast<int>(i - removes), id);
    }
  }
}

void DtGroupVCPdu::printData() const {
  DtVistralControlPdu::printData();
  DtDumpFloat("RadOffset", radialOffset());
  DtDumpFloat("Heading:", heading());
  DtDumpFloat("Pitch:", pitch());
  DtDumpFloat("HeadingOff:", headingOffset());
  DtDumpFloat("PitchOff:", pitchOffset());
  const int command = groupCmd();
  DtDumpEnum("GroupCmd:", command == 0 ? "Group" : "WideGroup", command);
  VcEntityLists::dump(*this, Group::lists);
}
