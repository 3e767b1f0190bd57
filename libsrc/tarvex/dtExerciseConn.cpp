#include "tarvex/dtExerciseConn.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <unordered_map>
#include <vector>

#include "dtFederationBackend.h"
#include "tarvex/dtDeferredRemoval.h"
#include "tarvex/dtDisSocket.h"
#include "tarvex/dtException.h"
#include "tarvex/dtMessage.h"

void DtInteractionFactory::add(const std::string& className, Creator creator) {
  ++version_;
  for (auto& entry : entries_) {
    if (entry.first == className) {
      entry.second = creator;
      return;
    }
  }
  entries_.emplace_back(className, creator);
}

DtInteractionFactory::Creator DtInteractionFactory::find(const std::string& className) const {
  for (const auto& entry : entries_)
    if (entry.first == className) return entry.second;
  return nullptr;
}

namespace {
bool empty(const char* text) { return text == nullptr || *text == '\0'; }

// Compared in line: the names are short, and a send asks for its class's twice. Reads no byte of text past
// its terminator (known holds no zero byte).
bool sameText(const std::string& known, const char* text) {
  const std::size_t n = known.size();
  for (std::size_t i = 0; i < n; ++i)
    if (text[i] != known[i]) return false;
  return text[n] == '\0';
}

bool isUrl(const std::string& execution) { return execution.find("://") != std::string::npos; }
bool isDisName(const std::string& execution) { return DtDisAddress::isDisName(execution.c_str()); }
bool anyName(const std::string& /*execution*/) { return true; }

// The kinds of federation, in the order an execution name is offered to them when no backend is named: the
// first that claims it is used, and the in-process federation, last, takes any name.
const DtFederationKind kKinds[] = {
    {"rti1516e", DtNamesRti1516e, DtJoinRti1516eFederation, true,
     "the HLA Evolved (IEEE 1516-2010) RTI backend, which this build does not have (configure with "
     "-DVISTRAL_RTI1516E_ROOT=<prefix of an HLA 1516e RTI>)",
     true},
    {"dis", isDisName, DtJoinDisNetwork, false, ""},
    {"rti13", isUrl, DtJoinRti13Federation, true,
     "the HLA 1.3 RTI backend, which this build does not have (configure with "
     "-DVISTRAL_RTI13_ROOT=<prefix of an HLA 1.3 RTI>)"},
    {"inprocess", anyName, DtJoinInProcessFederation, false, ""},
};

// The kind a connection uses: the one named, else the first that claims the execution name.
const DtFederationKind& chooseKind(const std::string& execution, const char* backend) {
  for (const DtFederationKind& kind : kKinds)
    if (empty(backend) ? kind.claims(execution) : std::strcmp(backend, kind.name) == 0) return kind;
  std::string known;
  for (const DtFederationKind& kind : kKinds) known += std::string(known.empty() ? "" : ", ") + kind.name;
  DT_THROW(std::string("Unknown federation backend '") + backend + "' (known: " + known + ")");
}

bool endsWith(const std::string& text, const char* end) {
  const std::size_t n = std::strlen(end);
  return text.size() >= n && text.compare(text.size() - n, n, end) == 0;
}

// FOM modules: paths separated by ';', merged in that order as the RTI merges them.
DtFomSource loadFomModules(const char* list) {
  if (empty(list))
    return DtFomSource{"", DtFedFile::parseFomModule(DtBuiltInFomModuleText, DtBuiltInFomModuleName), {}};
  DtFomSource out{list, DtFedFile(), {}};
  const std::string text = list;
  for (std::size_t from = 0; from <= text.size();) {
    const std::size_t end = std::min(text.find(';', from), text.size());
    const std::string path = text.substr(from, end - from);
    from = end + 1;
    if (path.empty()) continue;
    if (endsWith(path, ".fed"))
      DT_THROW("HLA Evolved federations take FOM modules (.xml), not FED files: " + path);
    const DtFedFile module = DtFedFile::readFomModule(path);
    if (out.modules.empty()) {
      out.fom = module;
    } else {
      out.fom.merge(module);
    }
    out.modules.push_back(path);
  }
  if (out.modules.empty()) DT_THROW(std::string("No FOM module named in '") + list + "'");
  return out;
}

DtFomSource loadFom(const char* fedFile, const DtFederationKind& kind) {
  if (kind.readsFomModules) return loadFomModules(fedFile);
  if (empty(fedFile)) return DtFomSource{"", DtFedFile::parse(DtBuiltInFomText, DtBuiltInFomName), {}};
  return DtFomSource{fedFile, DtFedFile::read(fedFile), {}};
}
}  // namespace

struct DtExerciseConn::Impl {
  struct Callback {
    DtInteractionDetail::ErasedFunction fn;
    CallbackThunk thunk;
    void* usr;
    bool live;
  };
  // Per interaction class: its callbacks and what delivery needs, looked up once.
  struct ClassState {
    std::vector<Callback> callbacks;
    int liveCallbacks = 0;
    DtInteractionFactory::Creator creator = nullptr;
    unsigned factoryVersion = ~0u;
    bool warnedNoCreator = false;
    bool warnedNoDecoder = false;
  };

  DtString execution;
  DtString federate;
  DtFomMapper mapper;
  DtIncomingQueue queue;  // before the backend, which fills it
  std::unique_ptr<DtFederationBackend> backend;
  std::vector<std::unique_ptr<DtInterClassDesc>> classes;
  std::vector<ClassState> states;  // parallel to classes
  std::unordered_map<RTI::InteractionClassHandle, std::size_t> indexOfHandle;
  DtInteractionDecoderList decoders;
  DtInteractionEncoderList encoders;
  DtInteractionFactory factory;
  DtString lostReason;                // empty while joined
  std::unique_ptr<DtException> lost;  // what processIncoming() throws once the federation is lost
  DtDeferredRemoval removal;          // callbacks removed while processIncoming() walks them
  struct LostEntry {
    LostCallback cb;
    void* usr;
    bool live;
  };
  std::vector<LostEntry> lostCallbacks;
  // Names asked for and what they found. The FOM and the mapper do not change once the connection has
  // joined, so a name always finds the same class, and senders ask by the same few names on every send.
  struct NameLookup {
    std::string name;
    DtInterClassDesc* desc;
  };
  static constexpr std::size_t kRememberedNames = 16;
  std::vector<NameLookup> lookups;

  void join(const char* executionName, const char* federateName, const char* fedFile, const char* backendName,
            void* rtiAmbassador) {
    if (empty(executionName)) DT_THROW("An exercise connection needs a federation execution name");
    if (empty(federateName)) DT_THROW("An exercise connection needs a federate name");
    execution = executionName;
    federate = federateName;
    const DtFederationKind& kind = chooseKind(executionName, backendName);
    if (rtiAmbassador != nullptr && !kind.takesAmbassador)
      DT_THROW(std::string("The ") + kind.name + " backend takes no RTI ambassador");
    DtFomSource fom = loadFom(fedFile, kind);
    fom.mapper = &mapper;
    backend = kind.join(executionName, federateName, fom, rtiAmbassador, queue);
    if (!backend) DT_THROW(std::string("Execution ") + executionName + " needs " + kind.notBuilt);
    classes = backend->interactionClasses();
    states.resize(classes.size());
    for (std::size_t i = 0; i < classes.size(); ++i) indexOfHandle[classes[i]->handle()] = i;
  }

  std::size_t indexOf(const DtInterClassDesc* desc) const { return indexOfHandle.at(desc->handle()); }

  // Where a class handle's class sits in classes, or false. Every receipt asks; traffic is mostly of one
  // class, so the handle found last is tried before the map, whose bucket division costs more than all else
  // in the lookup.
  bool findIndex(RTI::InteractionClassHandle handle, std::size_t* index) {
    if (lastFound < classes.size() && classes[lastFound]->handle() == handle) {
      *index = lastFound;
      return true;
    }
    const auto found = indexOfHandle.find(handle);
    if (found == indexOfHandle.end()) return false;
    *index = lastFound = found->second;
    return true;
  }
  std::size_t lastFound = 0;

  DtInterClassDesc* findClass(const char* name) const {
    for (const auto& c : classes)
      if (c->fullName() == name) return c.get();
    for (const auto& c : classes)
      if (c->name() == name) return c.get();
    return nullptr;
  }

  DtInteractionFactory::Creator creatorFor(const DtExerciseConn& conn, ClassState& state,
                                           const DtInterClassDesc* desc) const {
    if (state.factoryVersion != factory.version()) {
      state.creator = nullptr;
      for (const auto& entry : factory.entries())
        if (conn.interClassDescByName(entry.first.c_str()) == desc) state.creator = entry.second;
      state.factoryVersion = factory.version();
    }
    return state.creator;
  }

  static void warnOnce(bool& warned, const char* format, const std::string& className) {
    if (warned) return;
    warned = true;
    DtWarn.message(format, className.c_str());
  }

  bool deliver(DtExerciseConn& conn, RTI::InteractionClassHandle cls,
               const RTI::ParameterHandleValuePairSet& set) {
    std::size_t index = 0;
    if (!findIndex(cls, &index)) return false;
    DtInterClassDesc* desc = classes[index].get();
    ClassState& state = states[index];
    if (state.liveCallbacks == 0) return false;
    const DtInteractionFactory::Creator creator = creatorFor(conn, state, desc);
    if (creator == nullptr) {
      warnOnce(state.warnedNoCreator,
               "Cannot create received interactions of class %s: not in the interaction factory\n",
               desc->name());
      return false;
    }
    std::unique_ptr<DtInteraction> inter(creator());
    if (!inter) return false;
    inter->setClassDesc(desc);
    DtInteractionDecoder* decoder = decoders.find(cls);
    if (decoder == nullptr) {
      if (const auto* maker = dynamic_cast<const DtInteractionWithEncDec*>(inter.get())) {
        decoder = maker->createDecoder(&conn);
        if (decoder != nullptr) decoders.add(cls, decoder);
      }
    }
    if (decoder == nullptr) {
      warnOnce(state.warnedNoDecoder, "Cannot decode received interactions of class %s: no decoder\n",
               desc->name());
      return false;
    }
    decoder->decode(inter.get(), set);
    // Callbacks may add or remove callbacks: only those present now are called, each read afresh.
    const std::size_t n = state.callbacks.size();
    for (std::size_t i = 0; i < n; ++i) {
      const Callback c = state.callbacks[i];
      if (c.live) c.thunk(c.fn, inter.get(), c.usr);
    }
    return true;
  }

  template <class Entries>
  static void compact(Entries& entries) {
    entries.erase(std::remove_if(entries.begin(), entries.end(), [](const auto& e) { return !e.live; }),
                  entries.end());
  }

  // Once, when the loss is found. A callback may add or remove lost callbacks: only those present now are
  // called, each read afresh.
  void reportLoss(DtExerciseConn& conn) {
    const std::size_t n = lostCallbacks.size();
    for (std::size_t i = 0; i < n; ++i) {
      const LostEntry e = lostCallbacks[i];
      if (e.live) e.cb(&conn, e.usr);
    }
  }
};

DtExerciseConn::DtExerciseConn(const char* executionName, const char* federateName, DtFomMapper* fomMapper,
                               const char* fedFile, DtInitStatus* initStatus)
    : impl_(std::make_unique<Impl>()) {
  if (fomMapper != nullptr) impl_->mapper = *fomMapper;
  impl_->join(executionName, federateName, fedFile, nullptr, nullptr);
  if (initStatus != nullptr) *initStatus = impl_->backend->initStatus();
}

DtExerciseConn::DtExerciseConn(const char* executionName, const char* federateName, const char* fedFile,
                               const char* backend, void* rtiAmbassador)
    : impl_(std::make_unique<Impl>()) {
  impl_->join(executionName, federateName, fedFile, backend, rtiAmbassador);
}

DtExerciseConn::~DtExerciseConn() = default;

bool DtExerciseConn::rtiBackendBuiltIn() { return TARVEX_HAVE_RTI13 != 0; }
bool DtExerciseConn::rti1516eBackendBuiltIn() { return TARVEX_HAVE_RTI1516E != 0; }

std::string DtExerciseConn::executionNameForms() {
  std::string forms = "dis://HOST:PORT[?OPTIONS] for DIS over UDP (two processes on one host: ?listen=PORT)";
  if (rtiBackendBuiltIn()) forms += "; rti://HOST:PORT/NAME or thread:///NAME for an HLA 1.3 RTI";
  if (rti1516eBackendBuiltIn())
    forms +=
        "; hla1516e+rti://HOST:PORT/NAME, hla1516e+thread:///NAME or hla1516e:NAME for an HLA Evolved RTI";
  return forms + "; a plain name: a federation within this process";
}

const DtString& DtExerciseConn::executionName() const { return impl_->execution; }
const DtString& DtExerciseConn::federateName() const { return impl_->federate; }
const char* DtExerciseConn::backendName() const { return impl_->backend->name(); }
DtInitStatus DtExerciseConn::initStatus() const { return impl_->backend->initStatus(); }
const DtFomMapper& DtExerciseConn::fomMapper() const { return impl_->mapper; }

DtInterClassDesc* DtExerciseConn::interClassDescByName(const char* name) const {
  if (name == nullptr) return nullptr;
  std::vector<Impl::NameLookup>& lookups = impl_->lookups;
  for (const Impl::NameLookup& l : lookups)
    if (sameText(l.name, name)) return l.desc;
  const char* mapped = impl_->mapper.fomInteractionClass(name);
  DtInterClassDesc* desc = impl_->findClass(mapped);
  if (desc == nullptr && mapped != name) desc = impl_->findClass(name);
  if (lookups.size() < Impl::kRememberedNames) lookups.push_back(Impl::NameLookup{name, desc});
  return desc;
}

DtInterClassDesc* DtExerciseConn::interClassDescByHandle(RTI::InteractionClassHandle handle) const {
  std::size_t index = 0;
  return impl_->findIndex(handle, &index) ? impl_->classes[index].get() : nullptr;
}

int DtExerciseConn::interClassCount() const { return static_cast<int>(impl_->classes.size()); }

DtInterClassDesc* DtExerciseConn::interClassDesc(int index) const {
  return index >= 0 && index < interClassCount() ? impl_->classes[static_cast<std::size_t>(index)].get()
                                                 : nullptr;
}

DtInteractionDecoderList& DtExerciseConn::decoderList() { return impl_->decoders; }
DtInteractionEncoderList& DtExerciseConn::encoderList() { return impl_->encoders; }
DtInteractionFactory& DtExerciseConn::interactionFactory() { return impl_->factory; }

bool DtExerciseConn::addCallback(const char* className, DtInteractionDetail::ErasedFunction fn,
                                 CallbackThunk thunk, void* usr, const std::shared_ptr<DtDDMRegion>& region) {
  if (region) DT_THROW("Interaction callbacks with a region are not supported");
  DtInterClassDesc* desc = interClassDescByName(className);
  if (desc == nullptr || fn == nullptr) return false;
  Impl::ClassState& state = impl_->states[impl_->indexOf(desc)];
  state.callbacks.push_back(Impl::Callback{fn, thunk, usr, true});
  if (++state.liveCallbacks == 1 && !lost()) impl_->backend->subscribe(desc->handle(), true);
  return true;
}

bool DtExerciseConn::removeCallback(const char* className, DtInteractionDetail::ErasedFunction fn, void* usr,
                                    const std::shared_ptr<DtDDMRegion>& region) {
  if (region) DT_THROW("Interaction callbacks with a region are not supported");
  DtInterClassDesc* desc = interClassDescByName(className);
  if (desc == nullptr) return false;
  Impl::ClassState& state = impl_->states[impl_->indexOf(desc)];
  for (Impl::Callback& c : state.callbacks) {
    if (!c.live || c.fn != fn || c.usr != usr) continue;
    c.live = false;
    if (impl_->removal.eraseNow()) Impl::compact(state.callbacks);
    // The callback goes whatever the federation says: a lost one takes no more declarations, and one that
    // refuses the unsubscription now is lost, which the next processIncoming() reports. Removal runs in
    // destructors, which must not throw; what still arrives of the class finds no callback and is dropped.
    if (--state.liveCallbacks == 0 && !lost()) {
      try {
        impl_->backend->subscribe(desc->handle(), false);
      } catch (const DtException&) {
      }
    }
    return true;
  }
  return false;
}

bool DtExerciseConn::sendInteraction(DtInteraction& inter) {
  if (lost()) return false;
  DtInterClassDesc* desc = interClassDescByName(inter.interactionClassToUse(this));
  if (desc == nullptr) return false;
  DtInteractionEncoder* encoder = impl_->encoders.find(desc->handle());
  if (encoder == nullptr) {
    if (const auto* maker = dynamic_cast<const DtInteractionWithEncDec*>(&inter)) {
      inter.setClassDesc(desc);
      encoder = maker->createEncoder(this);
      if (encoder != nullptr) impl_->encoders.add(desc->handle(), encoder);
    }
  }
  if (encoder == nullptr) return false;
  RTI::ParameterHandleValuePairSet& set = impl_->backend->sendSet();
  set.empty();
  encoder->encode(inter, &set);
  return impl_->backend->trySend(desc->handle(), set);
}

int DtExerciseConn::processIncoming() {
  Impl& m = *impl_;
  if (m.removal.walking()) return 0;
  if (m.lost) throw *m.lost;
  int delivered = 0;
  m.removal.walk(
      [&] {
        // What arrived before the federation was lost is still delivered; the loss is reported after it.
        try {
          m.backend->poll();
        } catch (const DtException& e) {
          const std::string reason = m.backend->lostReason();
          if (reason.empty()) throw;
          m.lostReason = DtString(reason);
          m.lost = std::make_unique<DtException>(e);
        }
        m.queue.drain([&](RTI::InteractionClassHandle cls, const RTI::ParameterHandleValuePairSet& set) {
          if (m.deliver(*this, cls, set)) ++delivered;
        });
        if (!m.lost) return;
        m.reportLoss(*this);
        throw *m.lost;
      },
      [&] {
        for (Impl::ClassState& state : m.states) Impl::compact(state.callbacks);
        Impl::compact(m.lostCallbacks);
      });
  return delivered;
}

bool DtExerciseConn::lost() const { return impl_->lost != nullptr; }
const DtString& DtExerciseConn::lostReason() const { return impl_->lostReason; }

void DtExerciseConn::addLostCallback(LostCallback cb, void* usr) {
  if (cb != nullptr) impl_->lostCallbacks.push_back(Impl::LostEntry{cb, usr, true});
}

bool DtExerciseConn::removeLostCallback(LostCallback cb, void* usr) {
  auto& entries = impl_->lostCallbacks;
  for (Impl::LostEntry& e : entries) {
    if (!e.live || e.cb != cb || e.usr != usr) continue;
    e.live = false;
    if (impl_->removal.eraseNow()) Impl::compact(entries);
    return true;
  }
  return false;
}

std::size_t DtExerciseConn::pendingIncoming() const { return impl_->queue.pending(); }
std::size_t DtExerciseConn::retainedIncomingBytes() const { return impl_->queue.retainedBytes(); }
DtDatagramStatistics DtExerciseConn::datagramStatistics() const {
  return impl_->backend->datagramStatistics();
}
