#include "tarvex/dtInteraction.h"

#include <algorithm>
#include <cstring>
#include <memory>

#include "tarvex/dtExerciseConn.h"
#include "tarvex/dtInteractionDecoder.h"
#include "tarvex/dtInteractionEncoder.h"
#include "tarvex/dtMessage.h"

DtInterClassDesc::DtInterClassDesc(const std::string& fullName, const std::string& name,
                                   RTI::InteractionClassHandle handle)
    : fullName_(fullName), name_(name), handle_(handle) {}

void DtInterClassDesc::addParameter(const std::string& name, RTI::ParameterHandle handle) {
  parameters_.push_back(Parameter{name, handle});
}

bool DtInterClassDesc::findParameter(const std::string& name, RTI::ParameterHandle* handle) const {
  for (const Parameter& p : parameters_) {
    if (p.name == name) {
      if (handle != nullptr) *handle = p.handle;
      return true;
    }
  }
  return false;
}

DtInteraction::~DtInteraction() = default;
DtInteractionWithEncDec::~DtInteractionWithEncDec() = default;

namespace {
// The handle of a parameter given by the library's name, through the connection's FOM mapper. Reports on
// DtWarn and gives false when the class lacks it.
bool resolveParameter(const DtExerciseConn* conn, const DtInterClassDesc* desc, const char* name,
                      const char* what, RTI::ParameterHandle* handle) {
  const char* library = name ? name : "";
  if (desc != nullptr) {
    const char* fomName = conn ? conn->fomMapper().fomParameter(desc->name().c_str(), library) : library;
    if (desc->findParameter(fomName, handle)) return true;
  }
  DtWarn.message("Cannot add %s for parameter %s: not in FOM class %s\n", what, library,
                 desc ? desc->name().c_str() : "(none)");
  return false;
}
}  // namespace

// ---------------------------------------------------------------------------------------------------------
// Encoder

DtInteractionEncoder::DtInteractionEncoder(DtExerciseConn* conn, DtInterClassDesc* classDesc)
    : conn_(conn), classDesc_(classDesc) {}

DtInteractionEncoder::~DtInteractionEncoder() = default;

bool DtInteractionEncoder::addErased(const char* name, DtInteractionDetail::ErasedFunction fn, Thunk thunk) {
  RTI::ParameterHandle handle = 0;
  if (!resolveParameter(conn_, classDesc_, name, "encoder", &handle)) return false;
  encoders_.push_back(Entry{name, handle, fn, thunk});
  return true;
}

int DtInteractionEncoder::encode(const DtInteraction& inter, RTI::ParameterHandleValuePairSet* set) const {
  if (set == nullptr) return 0;
  int added = 0;
  for (const Entry& e : encoders_)
    if (e.thunk(e.fn, inter, set, e.handle)) ++added;
  return added;
}

// ---------------------------------------------------------------------------------------------------------
// Decoder

DtInteractionDecoder::DtInteractionDecoder(DtExerciseConn* conn, DtInterClassDesc* classDesc)
    : conn_(conn), classDesc_(classDesc) {}

DtInteractionDecoder::~DtInteractionDecoder() = default;

bool DtInteractionDecoder::addErased(const char* name, DtInteractionDetail::ErasedFunction fn, Thunk thunk) {
  RTI::ParameterHandle handle = 0;
  if (!resolveParameter(conn_, classDesc_, name, "decoder", &handle)) return false;
  decoders_.push_back(Entry{name, handle, fn, thunk});
  return true;
}

int DtInteractionDecoder::decode(DtInteraction* inter, const RTI::ParameterHandleValuePairSet& set) const {
  if (inter == nullptr) return 0;
  int decoded = 0;
  const RTI::ULong n = set.size();
  for (RTI::ULong i = 0; i < n; ++i) {
    const RTI::Handle handle = set.getHandle(i);
    for (const Entry& e : decoders_) {
      if (e.handle != handle) continue;
      e.thunk(e.fn, inter, set, static_cast<int>(i));
      ++decoded;
      break;
    }
  }
  return decoded;
}

namespace {
// Bytes [0, dirty) may hold an earlier value; every byte after them is zero. Clearing only that stretch
// before the next use keeps the zero tail without touching the whole buffer per message.
struct DecodingBuffer {
  std::unique_ptr<char[]> bytes;
  std::size_t size = 0;
  std::size_t dirty = 0;
};
thread_local DecodingBuffer theDecodingBuffer;
}  // namespace

char* DtInteractionDecoder::decodingBuffer(RTI::ULong length) {
  DecodingBuffer& b = theDecodingBuffer;
  const std::size_t need = std::max<std::size_t>(length, kMinDecodingBufferSize);
  // A buffer grown for one oversized value goes back to the usual size with the next ordinary one.
  if (need > b.size || (b.size > kMinDecodingBufferSize && need == kMinDecodingBufferSize)) {
    b.bytes.reset(new char[need]());
    b.size = need;
  } else if (b.dirty > length) {
    std::memset(b.bytes.get() + length, 0, b.dirty - length);
  }
  b.dirty = length;
  return b.bytes.get();
}
