// An emulator with its live view, and a controller beside it in the same in-process federation, steered one
// line at a time from standard input, for the browser test: "orbit" sets the orbit mode, "line" draws a line,
// "quit" leaves. It prints the live view's URL first.
//
//   liveViewDriver PAGE.html
#include <fstream>
#include <iostream>
#include <iterator>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "tarvex/dtExerciseConn.h"
#include "vistralcontrol/hVistralControlInter.h"
#include "vistralcontrol/vdcLinePdu.h"
#include "vistralcontrol/vistralControlRegister.h"
#include "vistralcontrol/vistralRemoteController.h"
#include "vistralemulator/emulatorLiveView.h"
#include "vistralemulator/vistralEmulator.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: liveViewDriver PAGE.html\n";
    return 2;
  }
  std::ifstream in(argv[1], std::ios::binary);
  const std::string page((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  if (page.empty()) {
    std::cerr << "cannot read " << argv[1] << "\n";
    return 2;
  }
  DtVistralEmulator emulator("LiveViewBrowser", "vistral-1");
  DtExerciseConn conn("LiveViewBrowser", "app");
  DtVistralControlRegister(&conn);
  DtVistralRemoteController controller(&conn, "vistral-1");
  controller.setControllerId("app");
  {
    DtEmulatorLiveView view("127.0.0.1:0", page);
    emulator.setLiveView(&view);
    std::cout << "live view at " << view.url() << std::endl;

    // Commands are read on a thread of their own and carried out on this one, between deliveries.
    std::mutex mutex;
    std::vector<std::string> commands;
    std::thread reader([&] {
      std::string line;
      while (std::getline(std::cin, line)) {
        std::lock_guard<std::mutex> lock(mutex);
        commands.push_back(line);
        if (line == "quit") return;
      }
      std::lock_guard<std::mutex> lock(mutex);
      commands.push_back("quit");  // the test has gone
    });
    bool running = true;
    while (running) {
      std::vector<std::string> todo;
      {
        std::lock_guard<std::mutex> lock(mutex);
        todo.swap(commands);
      }
      for (const std::string& command : todo) {
        if (command == "orbit") {
          const DtString tank("1:3001:12");
          const float radius = 150, heading = 0.8f;
          controller.setOrbitMode(&tank, &radius, &heading, nullptr, nullptr);
        } else if (command == "line") {
          DtVdcLinePdu line;
          line.setViewerId("vistral-1");
          line.setObjectId(901);
          line.setType(DtVdc2DLine);
          const char from[2] = {-80, -60}, to[2] = {60, 40};
          line.attachTo(from, to);
          unsigned char amber[4] = {255, 191, 0, 255};
          line.setColor(amber);
          line.setThickness(3);
          line.setArrowStyle(DtVdcLinePdu::DtVdcStyleArrowEnd);
          DtVistralControlInteraction inter;
          inter.setVcPdu(line);
          if (!conn.sendInteraction(inter)) std::cerr << "the line was not sent\n";
        } else if (command == "quit") {
          running = false;
        } else if (!command.empty()) {
          std::cerr << "unknown command " << command << "\n";
        }
      }
      emulator.processIncoming();
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    reader.join();
    emulator.setLiveView(nullptr);
  }  // the page hears that the viewer has gone
  std::cout << "left" << std::endl;
  return 0;
}
