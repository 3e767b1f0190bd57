#include "demoPdus.h"

#include "vistralcontrol/absoluteVcPdu.h"
#include "vistralcontrol/moveVcPdu.h"

namespace {
template <class T>
std::unique_ptr<T> addressed(const char* viewer, const char* controller) {
  auto pdu = std::make_unique<T>();
  pdu->setViewerId(viewer);
  pdu->setSenderId(controller);
  return pdu;
}
}  // namespace

std::vector<std::pair<const char*, std::unique_ptr<DtVistralControlPdu>>> demoPdus(const char* viewer,
                                                                                    const char* controller) {
  std::vector<std::pair<const char*, std::unique_ptr<DtVistralControlPdu>>> out;

  auto absolute = addressed<DtAbsoluteVCPdu>(viewer, controller);
  absolute->setWorldLocation(DtVector64(-2476512.25, -4665431.5, 3588000.75));
  absolute->setOrientation(DtTaitBryan(1.5, -0.25, 0.0));
  absolute->setIgnoreFlags(0);
  out.emplace_back("absolute mode", std::move(absolute));

  auto move = addressed<DtMoveVCPdu>(viewer, controller);
  move->setFromString("1 4 1.5 2 3");
  move->setIgnoreFlags(0xFEFFFFFF);
  out.emplace_back("move", std::move(move));
  return out;
}
