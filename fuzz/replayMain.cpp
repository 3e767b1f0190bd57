// Replays a fuzz target's corpus without libFuzzer: every file as it is, every prefix of it at a few cut
// points, and a fixed-seed set of byte mutations, so that a plain sanitizer build covers hostile input too.
//
//   xReplay [--shard=I/N] DIR...   the files of the DIRs; with a shard, only every Nth file from the Ith on
//                                  (in name order), so that a large corpus can be spread over processes
//   xReplay --generate=COUNT       no corpus: the empty input, then COUNT inputs grown from it by mutation,
//                                  as libFuzzer starts from an empty corpus, with its leak check after the
//                                  first input (the one that sets up whatever a target keeps for its life)
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <random>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
// LeakSanitizer's check on demand, present when the program runs under it.
extern "C" __attribute__((weak)) int __lsan_do_recoverable_leak_check();

namespace {
void run(const std::vector<std::uint8_t>& bytes) { LLVMFuzzerTestOneInput(bytes.data(), bytes.size()); }

// Nonzero when LeakSanitizer finds memory that nothing references any more (it has printed what).
bool leaked() {
  return __lsan_do_recoverable_leak_check != nullptr && __lsan_do_recoverable_leak_check() != 0;
}

int generate(long count) {
  std::mt19937 random(20261125u);
  std::vector<std::uint8_t> input;
  run(input);
  if (leaked()) {
    std::printf("memory leaked after the empty input\n");
    return 1;
  }
  for (long n = 0; n < count; ++n) {
    // Grow, cut or change the last input, as a mutating fuzzer would.
    switch (random() % 4) {
      case 0:
        input.insert(input.begin() + static_cast<long>(random() % (input.size() + 1)), 1 + random() % 64,
                     static_cast<std::uint8_t>(random()));
        break;
      case 1:
        if (!input.empty()) input.resize(random() % input.size());
        break;
      default:
        for (std::uint8_t& byte : input)
          if (random() % 8 == 0) byte = static_cast<std::uint8_t>(random());
    }
    run(input);
  }
  std::printf("ran %ld generated inputs after the empty one\n", count);
  return 0;
}
}  // namespace

int main(int argc, char** argv) {
  std::vector<std::filesystem::path> paths;
  long shard = 0, shards = 1;
  for (int a = 1; a < argc; ++a) {
    const std::string arg = argv[a];
    if (arg.rfind("--generate=", 0) == 0)
      return generate(std::atol(arg.c_str() + std::strlen("--generate=")));
    if (std::sscanf(arg.c_str(), "--shard=%ld/%ld", &shard, &shards) == 2) {
      if (shards < 1 || shard < 0 || shard >= shards) {
        std::fprintf(stderr, "%s: no such shard\n", arg.c_str());
        return 2;
      }
      continue;
    }
    for (const auto& entry : std::filesystem::directory_iterator(arg))
      if (entry.is_regular_file()) paths.push_back(entry.path());
  }
  std::sort(paths.begin(), paths.end());

  int files = 0;
  long runs = 0;
  for (std::size_t index = static_cast<std::size_t>(shard); index < paths.size();
       index += static_cast<std::size_t>(shards)) {
    std::ifstream in(paths[index], std::ios::binary);
    const std::vector<std::uint8_t> bytes{std::istreambuf_iterator<char>(in), {}};
    // Each file's mutations are its own, whichever shard replays it.
    std::mt19937 random(20261122u ^
                        static_cast<std::uint32_t>(std::hash<std::string>()(paths[index].filename())));
    ++files;
    run(bytes);
    ++runs;
    for (std::size_t cut : {std::size_t{0}, std::size_t{3}, std::size_t{11}, std::size_t{150},
                            std::size_t{155}, bytes.size() / 2}) {
      if (cut >= bytes.size()) continue;
      run(std::vector<std::uint8_t>(bytes.begin(), bytes.begin() + static_cast<long>(cut)));
      ++runs;
    }
    for (int m = 0; m < 64 && !bytes.empty(); ++m) {
      std::vector<std::uint8_t> mutated = bytes;
      for (int flips = 1 + static_cast<int>(random() % 4); flips > 0; --flips)
        mutated[random() % mutated.size()] = static_cast<std::uint8_t>(random());
      run(mutated);
      ++runs;
    }
  }
  std::printf("replayed %d corpus files in %ld runs\n", files, runs);
  return files > 0 ? 0 : 1;
}
