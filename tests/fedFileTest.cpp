// Reading HLA 1.3 FED files: the shipped FOM, inheritance of parameters, and errors that name file and line.
#include <gtest/gtest.h>

#include <string>

#include "tarvex/dtException.h"
#include "tarvex/dtExerciseConn.h"
#include "tarvex/dtFedFile.h"
#include "testSupport.h"

TEST(FedFile, ShippedFomDeclaresViewControlWithItsOneParameter) {
  const DtFedFile fed = DtFedFile::read(VISTRAL_FOM_DIR "/ViewControl.fed");
  EXPECT_EQ(fed.federationName(), "VistralControl");
  const DtFedInteractionClass* vc = fed.findInteractionClass("ViewControl");
  ASSERT_NE(vc, nullptr);
  EXPECT_EQ(vc, fed.findInteractionClass("InteractionRoot.ViewControl"));
  EXPECT_EQ(vc->fullName, "InteractionRoot.ViewControl");
  EXPECT_EQ(vc->transport, "reliable");
  EXPECT_EQ(vc->order, "receive");
  EXPECT_EQ(vc->parameters, std::vector<std::string>{"ViewControlPdu"});
  EXPECT_EQ(vc->line, 14);
  EXPECT_EQ(fed.interactionClasses().size(), 3u);  // InteractionRoot, RTIprivate, ViewControl

  // The connection's table is the same FOM, built in when no FED file is named.
  DtExerciseConn conn("FedFileBuiltIn", "reader");
  DtInterClassDesc* desc = conn.interClassDescByName("ViewControl");
  ASSERT_NE(desc, nullptr);
  EXPECT_EQ(desc->fullName(), "InteractionRoot.ViewControl");
  EXPECT_TRUE(desc->findParameter("ViewControlPdu", nullptr));
  EXPECT_EQ(conn.interClassCount(), 3);
}

TEST(FedFile, SubclassesInheritParametersAndKeywordsIgnoreCase) {
  const DtFedFile fed = DtFedFile::parse(
      "(fed (federation F) (fedversion v1.3)\n"
      " (Interactions (CLASS InteractionRoot Reliable TimeStamp\n"
      "   (class Base best_effort receive (parameter A) (parameter B)\n"
      "     (class Derived reliable receive space1 (parameter C))))))",
      "inline");
  const DtFedInteractionClass* derived = fed.findInteractionClass("Derived");
  ASSERT_NE(derived, nullptr);
  EXPECT_EQ(derived->fullName, "InteractionRoot.Base.Derived");
  EXPECT_EQ(derived->parameters, (std::vector<std::string>{"A", "B", "C"}));
  EXPECT_EQ(derived->line, 4);
  EXPECT_EQ(fed.findInteractionClass("Missing"), nullptr);
}

TEST(FedFile, MalformedFilesAreExceptionsNamingFileAndLine) {
  struct Case {
    const char* text;
    int line;
    const char* problem;
  };
  const std::string deep = std::string(100, '(') + std::string(100, ')');
  const Case cases[] = {
      {"", 1, "no (FED ...) list"},
      {";; only a comment\n", 2, "no (FED ...) list"},
      {"(FED\n (interactions\n  (class InteractionRoot reliable receive)\n", 2, "'(' is never closed"},
      {"(FED)\n)", 2, "')' without a matching '('"},
      {"(FED) (FED)", 1, "text after the (FED ...) list"},
      {"(OBJECTS)", 1, "the file must be one (FED ...) list"},
      {"(FED\n (routes))", 2, "unknown section 'routes'"},
      {"(FED (interactions\n (class X reliable)))", 2, "interaction class X needs a transport and an order"},
      {"(FED (interactions\n (class X reliable\n  sometimes)))", 3, "unknown order 'sometimes'"},
      {"(FED (interactions (class X carrier_pigeon receive)))", 1, "unknown transport 'carrier_pigeon'"},
      {"(FED (interactions\n (class X reliable receive (parameter P)\n  (parameter P))))", 3,
       "parameter P declared twice in class X"},
      {"(FED (interactions\n (class X reliable receive)\n (class X reliable receive)))", 3,
       "interaction class X declared twice"},
      {"(FED (interactions (class X reliable receive (parameter))))", 1, "(parameter <name>) expected"},
      {"(FED (interactions (class X reliable receive (attribute A reliable receive))))", 1,
       "(parameter ...) or (class ...) expected"},
      {"(FED (objects\n (class O (attribute A reliable))))", 2, "attribute A needs a transport and an order"},
      {"(FED (Federation \"unterminated\n))", 1, "unterminated quoted name"},
      {deep.c_str(), 1, "lists nested too deeply"},
  };
  for (const Case& c : cases) {
    const std::string expected = "FED file test.fed, line " + std::to_string(c.line) + ": " + c.problem;
    const std::string what = thrown([&] { (void)DtFedFile::parse(c.text, "test.fed"); });
    EXPECT_NE(what.find(expected), std::string::npos) << what << "\nexpected: " << expected;
  }
  EXPECT_NE(thrown([] {
              (void)DtFedFile::read("/nonexistent/dir/missing.fed");
            }).find("Cannot read FED file /nonexistent/dir/missing.fed"),
            std::string::npos);
  // A connection given a bad FED file reports it and joins nothing.
  EXPECT_THROW(DtExerciseConn("FedFileBad", "reader", nullptr, "/nonexistent/dir/missing.fed"), DtException);
}
