#include "tarvex/dtCmdLine.h"

#include <cmath>
#include <cstdio>
#include <iostream>
#include <ostream>

#include <termios.h>
#include <unistd.h>

struct DtCmdLine::Option {
  std::string name;
  std::string alias;
  std::string valueName;  // empty for a switch
  std::string help;
  std::string value;
  bool set = false;

  static std::string spelled(const std::string& n) { return (n.size() == 1 ? "-" : "--") + n; }
  bool takesValue() const { return !valueName.empty(); }
};

DtCmdLine::DtCmdLine(std::string program, std::string summary, std::string version)
    : program_(std::move(program)), summary_(std::move(summary)), version_(std::move(version)) {}

DtCmdLine::~DtCmdLine() = default;

int DtCmdLine::addSwitch(const std::string& name, const std::string& alias, const std::string& help) {
  options_.push_back(std::make_unique<Option>(Option{name, alias, "", help, "", false}));
  return static_cast<int>(options_.size()) - 1;
}

int DtCmdLine::addValue(const std::string& name, const std::string& alias, const std::string& valueName,
                        const std::string& help, const std::string& defaultValue) {
  options_.push_back(std::make_unique<Option>(Option{name, alias, valueName, help, defaultValue, false}));
  return static_cast<int>(options_.size()) - 1;
}

void DtCmdLine::setPositionalHelp(const std::string& synopsis, const std::string& help) {
  positionalSynopsis_ = synopsis;
  positionalHelp_ = help;
}

DtCmdLine::Option* DtCmdLine::find(const std::string& token) {
  for (auto& option : options_) {
    if (token == Option::spelled(option->name) ||
        (!option->alias.empty() && token == Option::spelled(option->alias)))
      return option.get();
  }
  return nullptr;
}

DtCmdLine::Result DtCmdLine::parse(int argc, const char* const* argv) {
  positionals_.clear();
  error_.clear();
  bool optionsEnded = false;
  for (int i = 1; i < argc; ++i) {
    const std::string token = argv[i] ? argv[i] : "";
    if (optionsEnded || token.size() < 2 || token[0] != '-' || (token[1] >= '0' && token[1] <= '9') ||
        token[1] == '.') {
      positionals_.push_back(token);  // includes negative numbers such as "-12.5"
      continue;
    }
    if (token == "--") {
      optionsEnded = true;
      continue;
    }
    if (token == "-h" || token == "--help") return Result::Help;
    if (token == "--version") return Result::Version;
    const auto equals = token.find('=');
    Option* option = find(token.substr(0, equals));
    if (option == nullptr) {
      error_ = "unknown argument '" + token + "'";
      return Result::Error;
    }
    option->set = true;
    if (!option->takesValue()) {
      if (equals != std::string::npos) {
        error_ = "'" + token.substr(0, equals) + "' takes no value";
        return Result::Error;
      }
      continue;
    }
    if (equals != std::string::npos) {
      option->value = token.substr(equals + 1);
    } else if (i + 1 < argc && argv[i + 1] != nullptr) {
      option->value = argv[++i];
    } else {
      error_ = "'" + token + "' needs a value (" + option->valueName + ")";
      return Result::Error;
    }
  }
  return Result::Ok;
}

bool DtCmdLine::isSet(int index) const {
  return index >= 0 && index < static_cast<int>(options_.size()) &&
         options_[static_cast<std::size_t>(index)]->set;
}

const std::string& DtCmdLine::value(int index) const {
  static const std::string kNone;
  return index >= 0 && index < static_cast<int>(options_.size())
             ? options_[static_cast<std::size_t>(index)]->value
             : kNone;
}

void DtCmdLine::printUsage(std::ostream& out) const {
  out << "Usage: " << program_ << " [OPTIONS]" << (positionalSynopsis_.empty() ? "" : " ")
      << positionalSynopsis_ << "\n";
  if (!summary_.empty()) out << summary_ << "\n";
  out << "\nOptions:\n";
  const auto row = [&out](const std::string& left, const std::string& help) {
    out << "  " << left;
    for (std::size_t n = left.size(); n < 30; ++n) out << ' ';
    out << ' ' << help << "\n";
  };
  for (const auto& option : options_) {
    std::string left = Option::spelled(option->name);
    if (!option->alias.empty()) left += ", " + Option::spelled(option->alias);
    if (option->takesValue()) left += " " + option->valueName;
    std::string help = option->help;
    if (option->takesValue() && !option->value.empty() && !option->set)
      help += " (default: " + option->value + ")";
    row(left, help);
  }
  row("-h, --help", "print this help and exit");
  row("--version", "print the version and exit");
  if (!positionalHelp_.empty()) out << "\n" << positionalHelp_;
}

void DtCmdLine::printVersion(std::ostream& out) const { out << program_ << " " << version_ << "\n"; }

bool DtCmdLine::number(int index, double low, double high, bool whole, double* out) const {
  const std::string& text = value(index);
  if (text.empty()) return false;
  char* end = nullptr;
  const double n = std::strtod(text.c_str(), &end);
  if (*end != '\0' || !(n >= low && n <= high) || (whole && n != std::floor(n))) return false;
  *out = n;
  return true;
}

int DtCmdLine::parseForProgram(int argc, const char* const* argv) {
  switch (parse(argc, argv)) {
    case Result::Help:
      printUsage(std::cout);
      return 0;
    case Result::Version:
      printVersion(std::cout);
      return 0;
    case Result::Error:
      printParseError(std::cerr);
      return 2;
    case Result::Ok:
      break;
  }
  return -1;
}

void DtCmdLine::printParseError(std::ostream& out) const {
  out << "PARSE ERROR: " << error_ << "\n\n";
  printUsage(out);
}

void DtCmdLine::pressAnyKeyToContinue(std::ostream& out) {
  if (!isatty(STDIN_FILENO)) return;
  out << "Press any key to continue" << std::flush;
  termios saved{};
  const bool raw = tcgetattr(STDIN_FILENO, &saved) == 0;
  if (raw) {
    termios once = saved;
    once.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO);
    once.c_cc[VMIN] = 1;
    once.c_cc[VTIME] = 0;
    tcsetattr(STDIN_FILENO, TCSANOW, &once);
  }
  char key;
  if (read(STDIN_FILENO, &key, 1) < 0) key = 0;
  if (raw) tcsetattr(STDIN_FILENO, TCSANOW, &saved);
  out << "\n";
}
