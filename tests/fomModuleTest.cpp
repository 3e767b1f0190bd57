// HLA Evolved FOM modules: the shipped module, inheritance and merging, malformed and hostile text, and what
// a connection does with a FOM module or a FED file on each edition.
#include <gtest/gtest.h>

#include <string>

#include "tarvex/dtException.h"
#include "tarvex/dtExerciseConn.h"
#include "tarvex/dtFedFile.h"
#include "testSupport.h"

namespace {
std::string module(const std::string& interactions) {
  return "<?xml version=\"1.0\"?>\n<objectModel xmlns=\"http://standards.ieee.org/IEEE1516-2010\">\n"
         "<interactions>\n" +
         interactions + "</interactions>\n</objectModel>\n";
}
}  // namespace

TEST(FomModule, ShippedModuleDeclaresViewControlAsTheFedFileDoes) {
  const DtFedFile fom = DtFedFile::readFomModule(VISTRAL_FOM_DIR "/ViewControl.xml");
  const DtFedInteractionClass* vc = fom.findInteractionClass("ViewControl");
  ASSERT_NE(vc, nullptr);
  EXPECT_EQ(vc->fullName, "HLAinteractionRoot.ViewControl");
  EXPECT_EQ(vc->parameters, std::vector<std::string>{"ViewControlPdu"});
  EXPECT_EQ(fom.interactionClasses().size(), 2u);  // the root and ViewControl
  const DtFedFile fed = DtFedFile::read(VISTRAL_FOM_DIR "/ViewControl.fed");
  EXPECT_EQ(vc->parameters, fed.findInteractionClass("ViewControl")->parameters);
}

TEST(FomModule, NestedClassesInheritAndModulesMerge) {
  const DtFedFile a = DtFedFile::parseFomModule(
      module(
          "<!-- a <name>comment</name> is no class -->\n"
          "<ns:interactionClass><name>HLAinteractionRoot</name>\n"
          " <interactionClass><name> Base </name><semantics><name>not a parameter</name></semantics>\n"
          "  <parameter><name>A</name><dataType>HLAopaqueData</dataType></parameter>\n"
          "  "
          "<interactionClass><name>Derived&amp;Co</name><parameter><name><![CDATA[B<1>]]></name></parameter>"
          "</interactionClass>\n"
          " </interactionClass>\n"
          "</ns:interactionClass>\n"),
      "a.xml");
  const DtFedInteractionClass* derived = a.findInteractionClass("Derived&Co");
  ASSERT_NE(derived, nullptr);
  EXPECT_EQ(derived->fullName, "HLAinteractionRoot.Base.Derived&Co");
  EXPECT_EQ(derived->parameters, (std::vector<std::string>{"A", "B<1>"}));
  EXPECT_EQ(derived->line, 8);
  EXPECT_EQ(a.findInteractionClass("Base")->parameters, std::vector<std::string>{"A"});

  DtFedFile merged = a;
  merged.merge(DtFedFile::parseFomModule(
      module("<interactionClass><name>HLAinteractionRoot</name><interactionClass><name>Base</name>"
             "<parameter><name>A</name></parameter><parameter><name>C</name></parameter></interactionClass>"
             "<interactionClass><name>Other</name></interactionClass></interactionClass>"),
      "b.xml"));
  EXPECT_EQ(merged.findInteractionClass("Base")->parameters, (std::vector<std::string>{"A", "C"}));
  ASSERT_EQ(merged.interactionClasses().size(), 4u);
  EXPECT_EQ(merged.interactionClasses().back().fullName, "HLAinteractionRoot.Other");
}

TEST(FomModule, MalformedModulesAreExceptionsNamingFileAndLine) {
  struct Case {
    std::string text;
    int line;
    const char* problem;
  };
  const std::string deep = std::string(100000, '<') + "a>";
  const Case cases[] = {
      {"", 1, "not a FOM module: no <objectModel> element"},
      {"(FED (Federation F))", 1, "not a FOM module: no <objectModel> element"},
      {"<objectModelX/>", 1, "not a FOM module: the document is <objectModelX>"},
      {"<objectModel>\n<interactions>\n</objectModel>", 3, "</objectModel> closes no open element"},
      {"<objectModel>\n<interactions>", 2, "element <interactions> is not closed"},
      {"<objectModel/><objectModel/>", 1, "a second document element <objectModel>"},
      {module("<interactionClass>\n</interactionClass>"), 5, "an interaction class without a <name>"},
      {module("<interactionClass><name>X</name><name>Y</name></interactionClass>"), 4,
       "interaction class X has two names"},
      {module("<interactionClass><name>X</name><parameter><name>P</name></parameter>\n"
              "<parameter><name>P</name></parameter></interactionClass>"),
       5, "parameter P declared twice in class X"},
      {module("<interactionClass><name>X</name></interactionClass>\n<interactionClass><name>X</name>"
              "</interactionClass>"),
       5, "interaction class X declared twice"},
      {module("<interactionClass><name>\n</name></interactionClass>"), 5, "an empty <name>"},
      {"<objectModel><!-- never ends", 1, "unterminated comment"},
      {"<objectModel attr='>", 1, "unterminated tag <objectModel>"},
      {"<objectModel>&bogus;</objectModel>", 1, "unknown entity or character reference"},
      {"<objectModel><![CDATA[ x", 1, "unterminated CDATA section"},
      {"<objectModel></", 1, "a tag without a name"},
      {deep, 1, "not a FOM module: the document is <<<<"},
  };
  for (const Case& c : cases) {
    const std::string expected = "FOM module m.xml, line " + std::to_string(c.line) + ": " + c.problem;
    const std::string what = thrown([&] { (void)DtFedFile::parseFomModule(c.text, "m.xml"); });
    EXPECT_NE(what.find(expected), std::string::npos) << what << "\nexpected: " << expected;
  }
  EXPECT_NE(thrown([] {
              (void)DtFedFile::readFomModule("/nonexistent/m.xml");
            }).find("Cannot read FOM module /nonexistent/m.xml"),
            std::string::npos);
}

TEST(FomModule, EachEditionTakesItsOwnKindOfObjectModel) {
  const std::string fed = VISTRAL_FOM_DIR "/ViewControl.fed";
  const std::string xml = VISTRAL_FOM_DIR "/ViewControl.xml";
  const std::string modules = xml + ";" + VISTRAL_TEST_FED_DIR "/noViewControl.xml";
  // A FED file on HLA Evolved is refused before anything joins, in any build.
  EXPECT_NE(thrown([&] {
              DtExerciseConn("hla1516e:Fom", "a", fed.c_str(), nullptr, nullptr);
            }).find("HLA Evolved federations take FOM modules (.xml), not FED files: " + fed),
            std::string::npos);
  EXPECT_NE(thrown([&] {
              DtExerciseConn("Fom", "a", ";", "rti1516e", nullptr);
            }).find("No FOM module named in ';'"),
            std::string::npos);
  // A 1.3 connection reads FED text only; the in-process federation is not a 1516e federation.
  EXPECT_NE(
      thrown([&] { DtExerciseConn("Fom", "a", xml.c_str(), nullptr, nullptr); }).find("FED file " + xml),
      std::string::npos);
  if (!DtExerciseConn::rti1516eBackendBuiltIn()) {
    EXPECT_NE(thrown([&] {
                DtExerciseConn("hla1516e:Fom", "a", modules.c_str(), nullptr, nullptr);
              }).find("-DVISTRAL_RTI1516E_ROOT"),
              std::string::npos);
    return;
  }
  for (const char* bad :
       {"hla1516e:", "hla1516e:///", "hla1516e+rti://host", "hla1516e+://h/E", "hla1516e:a/b"})
    EXPECT_NE(thrown([&] {
                DtExerciseConn(bad, "a", static_cast<DtFomMapper*>(nullptr));
              }).find("is not of the form"),
              std::string::npos)
        << bad;
}
