// Command-line parsing for the programs built on the toolkit: switches ("-v", "--verbose"), value arguments
// ("--viewer NAME", "--viewer=NAME"), positional arguments, usage and version output and "PARSE ERROR:"
// reporting.
#pragma once

#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

#include "tarvex/tarvexExport.h"

class TARVEX_EXPORT DtCmdLine {
 public:
  // What parse() found: arguments to act on, a request for help or for the version, or an error.
  enum class Result { Ok, Help, Version, Error };

  // program names the program in the usage text, summary says in a line what it does, version is printed by
  // "--version".
  DtCmdLine(std::string program, std::string summary, std::string version);
  ~DtCmdLine();
  DtCmdLine(const DtCmdLine&) = delete;
  DtCmdLine& operator=(const DtCmdLine&) = delete;

  // A switch, off unless given. Names are given without dashes; a one-letter name is written "-x", a longer
  // one "--name". The returned index is what isSet() and value() take.
  int addSwitch(const std::string& name, const std::string& alias, const std::string& help);
  // An argument that takes a value, with the value used when it is not given.
  int addValue(const std::string& name, const std::string& alias, const std::string& valueName,
               const std::string& help, const std::string& defaultValue);
  // Describes the positional arguments in the usage text ("COMMAND [ARGS...]").
  void setPositionalHelp(const std::string& synopsis, const std::string& help);

  // Parses argv[1..argc-1]. "-h"/"--help" gives Help, "--version" Version; an unknown argument or a missing
  // value gives Error with error() saying which. "--" ends the options.
  Result parse(int argc, const char* const* argv);

  // Parses, and answers what is no work for the program as a program does: the usage or the version on
  // standard output (the program then ends with status 0), a parse error and the usage on standard error
  // (status 2). Returns the status to end with, or -1 when parse() gave Ok and the program goes on.
  int parseForProgram(int argc, const char* const* argv);

  // Whether the switch or value argument under index was given.
  bool isSet(int index) const;
  // The argument's value as given, or its default; an empty text for an index no add call returned.
  const std::string& value(int index) const;
  // The argument's value read as a number from low to high, a whole one when whole is set; false, leaving out
  // alone, when its text is empty or no such number.
  bool number(int index, double low, double high, bool whole, double* out) const;
  // The arguments that are no options, in order.
  const std::vector<std::string>& positionals() const { return positionals_; }
  // What was wrong after parse() gave Error.
  const std::string& error() const { return error_; }

  // The usage text: the summary, the synopsis and every option with its help and default.
  void printUsage(std::ostream& out) const;
  // The program's name and version.
  void printVersion(std::ostream& out) const;
  // "PARSE ERROR: <error>", then the usage.
  void printParseError(std::ostream& out) const;

  // Writes "Press any key to continue" and waits for a key, but only when the input is a terminal, so that a
  // script or a CI run never waits.
  static void pressAnyKeyToContinue(std::ostream& out);

 private:
  struct Option;
  Option* find(const std::string& token);

  std::string program_;
  std::string summary_;
  std::string version_;
  std::string positionalSynopsis_;
  std::string positionalHelp_;
  std::vector<std::unique_ptr<Option>> options_;
  std::vector<std::string> positionals_;
  std::string error_;
};
