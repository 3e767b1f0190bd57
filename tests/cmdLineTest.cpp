// Command-line parsing: switches, values in both spellings, positionals, errors and the usage text.
#include <gtest/gtest.h>

#include <sstream>

#include "tarvex/dtCmdLine.h"

namespace {
struct Line {
  DtCmdLine cmd{"steer", "Steers a viewer.", "54.0"};
  int verbose = cmd.addSwitch("verbose", "v", "say more");
  int viewer = cmd.addValue("viewer", "t", "NAME", "the viewer to steer", "0:0:0");
  DtCmdLine::Result parse(std::initializer_list<const char*> args) {
    std::vector<const char*> argv{"steer"};
    argv.insert(argv.end(), args);
    return cmd.parse(static_cast<int>(argv.size()), argv.data());
  }
};
}  // namespace

TEST(CmdLine, SwitchesValuesAndPositionals) {
  Line line;
  ASSERT_EQ(line.parse({"-v", "orbit", "--viewer=vistral-2", "-12.5", "--", "--not-an-option"}),
            DtCmdLine::Result::Ok);
  EXPECT_TRUE(line.cmd.isSet(line.verbose));
  EXPECT_EQ(line.cmd.value(line.viewer), "vistral-2");
  EXPECT_EQ(line.cmd.positionals(), (std::vector<std::string>{"orbit", "-12.5", "--not-an-option"}));

  Line defaults;
  ASSERT_EQ(defaults.parse({"-t", "v3"}), DtCmdLine::Result::Ok);
  EXPECT_FALSE(defaults.cmd.isSet(defaults.verbose));
  EXPECT_EQ(defaults.cmd.value(defaults.viewer), "v3");
  EXPECT_EQ(defaults.cmd.value(99), "");
}

TEST(CmdLine, ErrorsHelpAndVersion) {
  Line unknown;
  ASSERT_EQ(unknown.parse({"--bogus"}), DtCmdLine::Result::Error);
  std::ostringstream out;
  unknown.cmd.printParseError(out);
  EXPECT_EQ(out.str().rfind("PARSE ERROR: unknown argument '--bogus'\n\nUsage: steer [OPTIONS]\n", 0), 0u)
      << out.str();
  EXPECT_NE(out.str().find("--viewer, -t NAME"), std::string::npos);
  EXPECT_NE(out.str().find("(default: 0:0:0)"), std::string::npos);

  Line missing;
  EXPECT_EQ(missing.parse({"--viewer"}), DtCmdLine::Result::Error);
  EXPECT_EQ(missing.cmd.error(), "'--viewer' needs a value (NAME)");
  Line valued;
  EXPECT_EQ(valued.parse({"--verbose=1"}), DtCmdLine::Result::Error);
  EXPECT_EQ(Line().parse({"-h"}), DtCmdLine::Result::Help);
  Line version;
  EXPECT_EQ(version.parse({"--version"}), DtCmdLine::Result::Version);
  std::ostringstream v;
  version.cmd.printVersion(v);
  EXPECT_EQ(v.str(), "steer 54.0\n");
  DtCmdLine::pressAnyKeyToContinue(v);  // input is not a terminal under test: returns at once
}

// Numbers given as values: inside their range, whole where asked, and nothing else (the output left alone).
TEST(CmdLine, NumbersInRangeAndNothingElse) {
  double n = -1;
  const auto read = [&n](const char* text, double low, double high, bool whole) {
    Line line;
    EXPECT_EQ(line.parse({"--viewer", text}), DtCmdLine::Result::Ok);
    return line.cmd.number(line.viewer, low, high, whole, &n);
  };
  EXPECT_TRUE(read("2.5", 0, 10, false));
  EXPECT_EQ(n, 2.5);
  EXPECT_TRUE(read("65535", 0, 65535, true));
  EXPECT_EQ(n, 65535);
  for (const char* bad : {"", "x", "3s", "65536", "-1", "1.5", "nan"})
    EXPECT_FALSE(read(bad, 0, 65535, true)) << bad;
  EXPECT_EQ(n, 65535);
}

// A program's answer to what is no work for it: the status it ends with, and which stream says why.
TEST(CmdLine, ParseForProgramEndsWithTheRightStatusOnTheRightStream) {
  const auto run = [](std::initializer_list<const char*> args, std::string* out, std::string* err) {
    Line line;
    std::vector<const char*> argv{"steer"};
    argv.insert(argv.end(), args);
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    const int status = line.cmd.parseForProgram(static_cast<int>(argv.size()), argv.data());
    *out = testing::internal::GetCapturedStdout();
    *err = testing::internal::GetCapturedStderr();
    return status;
  };
  std::string out, err;
  EXPECT_EQ(run({"--help"}, &out, &err), 0);
  EXPECT_NE(out.find("Usage: steer"), std::string::npos);
  EXPECT_TRUE(err.empty());
  EXPECT_EQ(run({"--version"}, &out, &err), 0);
  EXPECT_EQ(out, "steer 54.0\n");
  EXPECT_EQ(run({"--bogus"}, &out, &err), 2);
  EXPECT_TRUE(out.empty());
  EXPECT_EQ(err.rfind("PARSE ERROR: unknown argument '--bogus'", 0), 0u);
  EXPECT_EQ(run({"-v", "--viewer", "x"}, &out, &err), -1);
  EXPECT_TRUE(out.empty() && err.empty());
}
