#include "demoDelivery.h"

#include <chrono>
#include <thread>

#include "tarvex/dtExerciseConn.h"

bool deliverUntil(const std::function<bool()>& done, std::initializer_list<DtExerciseConn*> conns) {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  for (;;) {
    int delivered = 0;
    for (DtExerciseConn* conn : conns) delivered += conn->processIncoming();
    if (done()) return true;
    if (std::chrono::steady_clock::now() > deadline) return false;
    if (delivered == 0) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
}
