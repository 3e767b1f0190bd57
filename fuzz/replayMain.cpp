// Replays a fuzz target's corpus without libFuzzer: every file as it is, every prefix of it at a few cut
// points, and a fixed-seed set of byte mutations, so that a plain sanitizer build covers hostile input too.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {
void run(const std::vector<std::uint8_t>& bytes) { LLVMFuzzerTestOneInput(bytes.data(), bytes.size()); }
}  // namespace

int main(int argc, char** argv) {
  std::mt19937 random(20261122u);
  int files = 0;
  long runs = 0;
  for (int a = 1; a < argc; ++a) {
    for (const auto& entry : std::filesystem::directory_iterator(argv[a])) {
      if (!entry.is_regular_file()) continue;
      std::ifstream in(entry.path(), std::ios::binary);
      const std::vector<std::uint8_t> bytes{std::istreambuf_iterator<char>(in), {}};
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
  }
  std::printf("replayed %d corpus files in %ld runs\n", files, runs);
  return files > 0 ? 0 : 1;
}
