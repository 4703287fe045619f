#include <gmock/gmock.h>

#include <functional>

#include "foundation/CTrace.h"
#include "support/ModelTest.h"

namespace qb {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;

/// An operation on a package of one document with one file and one property, and the line that it traces.
struct TraceCase {
  std::string line;
  std::function<void(CPxfFile&)> run;
};

class PxfTraceTest : public ModelTest {
 protected:
  using Access = PxfFileAccess;

  void WriteSample() {
    WritePackage(
        PackageBuilder().Loio("A").Phio("DST_CURR", "dst").File("a.css", "PRIM").Property("N", "V", "I"));
  }
};

std::vector<TraceCase> Cases() {
  using Access = PxfFileAccess;
  const auto links = [](CPxfFile& file) {
    Collection<std::string> list;
    list.Add("http://a");
    file.WriteHyperlinks(1, 1, &list);
  };
  const auto properties = [](CPxfFile& file) {
    CProperties list;
    list.Add("N", "V", "I", "");
    file.WritePHIOProperties(1, 1, list);
  };
  const auto files = [](CPxfFile& file) {
    CPhioEntry phio;
    phio.Init(1, "DST_CURR", "G", "C", "", "", "dst", "UNCHANGED", nullptr, nullptr);
    phio.Add("a.css", "PRIM", "A.CSS", "");
    file.SavePhioFiles(1, phio);
  };
  return {
      {"GetNewAddSectionName: new ADD_Section Name: 'ADD2'", [](CPxfFile& f) { f.GetNewAddSectionName(); }},
      {"WriteHyperlinks: write Hyp.-Link to PXF: Section: 'ADD2 '1NAME': ' '1VALUE': 'http://a '1INFO': ''",
       links},
      {"WritePHIOProperties: write PHIO-Props to PXF: Section: 'ADD1 '1NAME': 'N '1VALUE': 'V '1INFO': 'I'",
       properties},
      {"IsTouched: read PXF: isTouched: 'False'", [](CPxfFile& f) { f.IsTouched(); }},
      {"Touch: write PXF: Touch: 'True'", [](CPxfFile& f) { f.Touch(); }},
      {"SavePhioFiles: write PXF: Component: 'True' LOIO: '1' PHIO: '1'1FILE_NAME: 'a.css'1FORMAT: "
       "'PRIM'1SHORT_NAME: 'A.CSS'",
       files},
      {"SavePhioFiles: write PXF: Component: 'True'<<< LOIO: '1' PHIO: '1FILE_COUNT: '1'", files},
      {"WriteFilePXFEntry: write PXF: 'True'<<< LOIO: '1' PHIO: '2' Key: 'FORMAT' File: '3' Value: 'PRIM'",
       [](CPxfFile& f) { Access::WriteFilePXFEntry(f, 1, 2, 3, "FORMAT", "PRIM"); }},
      {R"(WriteLOIOPXFEntry: write to PXF: 'True'<<< LOIO: '1' key: 'K' Value: 'V' PxfFileName: '\pkg\Trans.pxf')",
       [](CPxfFile& f) { Access::WriteLOIOPXFEntry(f, 1, "K", "V"); }},
      {R"(WritePHIOPXFEntry: write to PXF: 'True'<<< LOIO: '1' PHIO: '2' key: 'K' Value: 'V' )"
       R"(PxfFileName: '\pkg\Trans.pxf')",
       [](CPxfFile& f) { Access::WritePHIOPXFEntry(f, 1, 2, "K", "V"); }},
      {"GetPHIOPXFEntry: read PXF: 'dst'<<< LOIO: '1' PHIO: '1' Entry: 'PATH'",
       [](CPxfFile& f) { Access::GetPHIOPXFEntry(f, 1, 1, "PATH"); }},
      {"GetPHIOFilePXFEntry: read PXF: 'a.css'<<< LOIO: '1' PHIO: '1' Entry: 'FILE_NAME' File: '1'",
       [](CPxfFile& f) { Access::GetPHIOFilePXFEntry(f, 1, 1, 1, "FILE_NAME"); }},
      {R"(DeletePXFEntry: delete PXF Entry: Section: ' 1' Key: 'K' PXFFileName: '\pkg\Trans.pxf')",
       [](CPxfFile& f) { f.DeletePXFEntry(" 1", "K"); }},
      {"SavePHIOState: write PXF: LOIO: '1' PHIO: '1' State: 'MODIFIED'",
       [](CPxfFile& f) { f.SavePHIOState(1, 1, "MODIFIED"); }},
      {"SaveLOIOState: write PXF: LOIO: '1' Progress: 'COMPLETE'",
       [](CPxfFile& f) { f.SaveLOIOState(1, "COMPLETE"); }},
      {": File modification: '18991230000000'", [](CPxfFile& f) { f.GetFileModification(R"(\none)"); }},
      {"IsTradosPackage: Is Trados Package: 'False'", [](CPxfFile& f) { f.IsTradosPackage(); }},
      {"IsQBTPackage: Is QBT Package: 'True'", [](CPxfFile& f) { f.IsQBTPackage(); }},
      {"IsLocalizationPackage: Is Localization Package: 'False'",
       [](CPxfFile& f) { f.IsLocalizationPackage(); }},
      {"GetQBTWorkflow: Get QBT Workflow: ''", [](CPxfFile& f) { f.GetQBTWorkflow(); }},
      {"GetPHIOProperties: fill Props-Coll.: '' Name: 'N' Value: 'V' Info: 'I'",
       [](CPxfFile& f) { Access::GetPHIOProperties(f, 1, 1); }},
      {"GetNumberOfFiles: read PXF: number of files: '1'", [](CPxfFile& f) { f.GetNumberOfFiles(1, 1); }},
  };
}

TEST_F(PxfTraceTest, EveryOperation_TracesItsLine) {
  for (const TraceCase& each : Cases()) {
    WriteSample();
    StartTrace();
    each.run(Package());
    EXPECT_THAT(TraceLines(), Contains("CPxfFile." + each.line));
  }
}

TEST_F(PxfTraceTest, RefusedWrites_SayFalse) {
  StartTrace();
  Package().Touch();
  Access::WriteLOIOPXFEntry(Package(), 1, "K", "V");
  EXPECT_THAT(
      TraceLines(),
      ElementsAre("CPxfFile.Touch: write PXF: Touch: 'False'",
                  "CPxfFile.WriteLOIOPXFEntry: write to PXF: 'False'<<< LOIO: '1' key: 'K' Value: 'V' "
                  R"(PxfFileName: '\pkg\Trans.pxf')"));
}

TEST_F(PxfTraceTest, Level2_HidesTheDetails) {
  WriteSample();
  StartTrace();
  gTrace->Level = 2;
  for (const TraceCase& each : Cases()) each.run(Package());
  EXPECT_THAT(TraceLines(), ElementsAre());
}

TEST_F(PxfTraceTest, PackageTypes_WithoutAFile_AreSilent) {
  CPxfFile file;
  StartTrace();
  file.IsTradosPackage();
  file.IsQBTPackage();
  file.IsLocalizationPackage();
  file.GetQBTWorkflow();
  EXPECT_THAT(TraceLines(), ElementsAre());
}

TEST_F(PxfTraceTest, NumberOfFiles_KeyMissing_IsNotTold) {
  WriteSample();
  StartTrace();
  Package().GetNumberOfFiles(1, 2);
  EXPECT_THAT(
      TraceLines(),
      ElementsAre("CPxfFile.GetPHIOPXFEntry: read PXF: ''<<< LOIO: '1' PHIO: '2' Entry: 'FILE_COUNT'"));
}

TEST_F(PxfTraceTest, SeveralFiles_EachHaveTheirLine) {
  WriteSample();
  CPhioEntry phio;
  phio.Init(1, "DST_CURR", "G", "C", "", "", "dst", "UNCHANGED", nullptr, nullptr);
  phio.Add("a.css", "PRIM", "a.css", "");
  phio.Add("b.gif", "", "b.gif", "");
  StartTrace();
  Package().SavePhioFiles(1, phio);
  EXPECT_THAT(TraceLines(), Contains("CPxfFile.SavePhioFiles: write PXF: Component: 'True' LOIO: '1' PHIO: "
                                     "'1'2FILE_NAME: 'b.gif'2FORMAT: ''2SHORT_NAME: 'b.gif'"));
}

}  // namespace
}  // namespace qb
