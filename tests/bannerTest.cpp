// The start-up banner: written once per process, by the first control PDU of any kind, never by copies.
#include <gtest/gtest.h>

#include <sstream>

#include "tarvex/dtMessage.h"
#include "vistralcontrol/absoluteVcPdu.h"
#include "vistralcontrol/moveVcPdu.h"

TEST(Banner, PrintedOnceByTheFirstPduNeverByCopies) {
  std::ostringstream info;
  DtStreamRedirect redirect(DtInfo, info);
  const char* banner = "Using Quorel Technologies vistral control API version 1.2 for Tarvex 5.8.\n";

  DtMoveVCPdu first;
  EXPECT_EQ(info.str(), banner);
  DtMoveVCPdu copy(first);
  DtAbsoluteVCPdu second;
  DtRequestStateVCPdu third;
  copy = first;
  delete DtNewViewControlPdu(DtVcAbsolute);
  EXPECT_EQ(info.str(), banner);
}
