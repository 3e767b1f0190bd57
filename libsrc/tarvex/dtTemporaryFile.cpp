#include "dtTemporaryFile.h"

#include <unistd.h>

#include <cstdio>
#include <vector>

#include "tarvex/dtException.h"

DtTemporaryFile::DtTemporaryFile(const std::string& text, const std::string& suffix,
                                 const std::string& what) {
  const std::string pattern = "/tmp/vistral-fom-XXXXXX" + suffix;
  std::vector<char> name(pattern.begin(), pattern.end());
  name.push_back('\0');
  const int fd = mkstemps(name.data(), static_cast<int>(suffix.size()));
  if (fd < 0) DT_THROW("Cannot write " + what + " to a temporary file for the RTI");
  const bool written = write(fd, text.data(), text.size()) == static_cast<ssize_t>(text.size());
  close(fd);
  path_ = name.data();
  if (!written) {
    std::remove(path_.c_str());
    DT_THROW("Cannot write " + what + " to " + path_);
  }
}

DtTemporaryFile::~DtTemporaryFile() { std::remove(path_.c_str()); }
