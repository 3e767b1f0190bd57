// A text written to a file of its own for as long as the object lives: the built-in FOM handed to an RTI,
// which takes object models by path only.
#pragma once

#include <string>

class DtTemporaryFile {
 public:
  // suffix: the file name's ending, e.g. ".fed"; what: how error messages name the text.
  DtTemporaryFile(const std::string& text, const std::string& suffix, const std::string& what);
  ~DtTemporaryFile();
  DtTemporaryFile(const DtTemporaryFile&) = delete;
  DtTemporaryFile& operator=(const DtTemporaryFile&) = delete;

  const std::string& path() const { return path_; }

 private:
  std::string path_;
};
