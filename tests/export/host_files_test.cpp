// The simulated host's own: exchange files by sheets, PDF files by options and profiles, windows
// that go, and models that are not displayed.
#include <filesystem>

#include "simhost/picture/plot.h"
#include "simhost/system/windows.h"
#include "tests/export/export_bench.h"

namespace {

using namespace simhost;
using workbench::ExportBench;
using workbench::GeneralView;
using workbench::Names;
using workbench::SheetsOf;

class HostFiles : public ExportBench {
protected:
    // D.DRW: a view of the box on sheet 1, a note on sheet 2, nothing on sheet 3.
    void SetUp() override {
        ExportBench::SetUp();
        SavedBox("BOX");
        WriteDrawing("d.drw.1", SheetsOf(3) + GeneralView(1, "box.prt", 1) +
                                    "\n[[note]]\nid = 7\nsheet = 2\nat = [50, 50]\n"
                                    "text = [\"第二页\"]\n");
        Play("@ open d.drw");
        drawing_ = static_cast<ProDrawing>(Drawn("D").handle);
        part_ = host().session.FindByFile("box.prt")->handle;
    }
    ProError Export(const WideText& path, Pro2dExportdata data = nullptr,
                    Pro2dExportType format = PRO_DXF_FILE) {
        WideText file = path;
        return Pro2dExport(format, file.data(), drawing_, data);
    }
    static Pro2dExportdata Data(int sheet) {
        Pro2dExportdata data = nullptr;
        EXPECT_EQ(Pro2dExportdataAlloc(&data), PRO_TK_NO_ERROR);
        EXPECT_EQ(Pro2dExportdataSheetoptionSet(data, PRO2DEXPORT_SELECTED), PRO_TK_NO_ERROR);
        EXPECT_EQ(Pro2dExportdataModelspacesheetSet(data, sheet), PRO_TK_NO_ERROR);
        host().arrays.ForgetHandle(data);  // what a caller leaves is another test's matter
        return data;
    }
    // Whether the file has views' lines, and whether it has the note of sheet 2.
    std::string Holds(const WideText& path) {
        const std::string text = Read(path);
        std::string found;
        if (text.find("\r\nVISIBLE\r\n 10\r\n") != std::string::npos) found += "view ";
        if (text.find(ToCodePage(936, WIDE("第二页"))) != std::string::npos) found += "note ";
        return found;
    }
    static Host& host() { return TheHost(); }

    ProDrawing drawing_ = nullptr;
    ProMdl part_ = nullptr;
};

TEST_F(HostFiles, ASheetIsWrittenWithoutBecomingTheCurrentOne) {
    EXPECT_EQ(Export(WIDE("C:\\Work\\two.dxf"), Data(2)), PRO_TK_NO_ERROR);
    EXPECT_EQ(Holds(WIDE("C:\\Work\\two.dxf")), "note ");
    EXPECT_EQ(DrawingOf(Drawn("D")).currentSheet, 1);
    ProDrawingCurrentSheetSet(drawing_, 2);
    EXPECT_EQ(Export(WIDE("C:\\Work\\one.dxf"), Data(1)), PRO_TK_NO_ERROR);
    EXPECT_EQ(Holds(WIDE("C:\\Work\\one.dxf")), "view ");
    EXPECT_EQ(DrawingOf(Drawn("D")).currentSheet, 2);
}

TEST_F(HostFiles, WithoutDataOrWithoutASheetTheCurrentOneIsWritten) {
    ProDrawingCurrentSheetSet(drawing_, 2);
    EXPECT_EQ(Export(WIDE("C:\\Work\\a.dxf")), PRO_TK_NO_ERROR);
    EXPECT_EQ(Holds(WIDE("C:\\Work\\a.dxf")), "note ");
    Pro2dExportdata data = nullptr;
    Pro2dExportdataAlloc(&data);
    host().arrays.ForgetHandle(data);
    EXPECT_EQ(Export(WIDE("C:\\Work\\b.dxf"), data), PRO_TK_NO_ERROR);
    EXPECT_EQ(Read(WIDE("C:\\Work\\b.dxf")), Read(WIDE("C:\\Work\\a.dxf")));
}

TEST_F(HostFiles, WhatNoSheetOrDrawingIsIsRefusedAndWritesNothing) {
    EXPECT_EQ(Export(WIDE("C:\\Work\\a.dxf"), Data(4)), PRO_TK_BAD_INPUTS);
    Pro2dExportdata data = Data(1);
    EXPECT_EQ(Pro2dExportdataModelspacesheetSet(data, 0), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Pro2dExportdataSheetoptionSet(data, Pro2dExportSheetOption(4)), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Pro2dExportdataSheetoptionSet(data, Pro2dExportSheetOption(-1)), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Pro2dExportdataSheetoptionSet(nullptr, PRO2DEXPORT_ALL), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Export(WIDE("C:\\Work\\a.dxf"), data, Pro2dExportType(5)), PRO_TK_BAD_INPUTS);
    WideText file = WIDE("C:\\Work\\a.dxf");
    EXPECT_EQ(Pro2dExport(PRO_DXF_FILE, file.data(), part_, nullptr), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Pro2dExport(PRO_DXF_FILE, file.data(), nullptr, nullptr), PRO_TK_BAD_INPUTS);
    EXPECT_FALSE(Exists(file));
    EXPECT_TRUE(Complaints().empty());
}

TEST_F(HostFiles, GarbageInThePlaceOfDataIsAComplaint) {
    int garbage = 0;
    auto* data = reinterpret_cast<Pro2dExportdata>(&garbage);
    EXPECT_EQ(Export(WIDE("C:\\Work\\a.dxf"), data), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Complaints(), Names{"Pro2dExport: not a record of export data"});
}

TEST_F(HostFiles, FilesThatCannotBeWrittenStayAsTheyWere) {
    const WideText path = WIDE("C:\\Work\\a.dxf");
    Write(path, "old");
    TheWindows().Hold(path);
    EXPECT_EQ(Export(path), PRO_TK_CANT_WRITE);
    TheWindows().Release(path);
    EXPECT_EQ(Read(path), "old");
    EXPECT_EQ(Export(WIDE("C:\\Nowhere\\a.dxf")), PRO_TK_CANT_WRITE);
    EXPECT_EQ(Export(WIDE("C:\\Work\\a?.dxf")), PRO_TK_CANT_WRITE);
    EXPECT_EQ(Export(WIDE("C:\\Work\\a:b.dxf")), PRO_TK_CANT_WRITE);
    EXPECT_EQ(Export(WIDE("C:\\Work\\") + WideText(250, WideChar{'a'}) + WIDE(".dxf")),
              PRO_TK_CANT_WRITE);
    EXPECT_EQ(Export(WIDE("relative.dxf")), PRO_TK_NO_ERROR);
    EXPECT_TRUE(Exists(WIDE("C:\\Work\\relative.dxf")));
}

TEST_F(HostFiles, DwgIsExchangeTextAndSaysSo) {
    Play("@ option dwg_export_format 2000");
    EXPECT_EQ(Export(WIDE("C:\\Work\\a"), nullptr, PRO_DWG_FILE), PRO_TK_NO_ERROR);
    EXPECT_EQ(Utf8(host().shown.back().text),
              "C:\\Work\\a.dwg holds exchange text (DXF, release 12); dwg_export_format is 2000");
    EXPECT_EQ(Holds(WIDE("C:\\Work\\a.dwg")), "view ");
}

// --- PDF ---

class HostPdf : public HostFiles {
protected:
    void SetUp() override {
        HostFiles::SetUp();
        ASSERT_EQ(ProPDFoptionsAlloc(&options_), PRO_TK_NO_ERROR);
    }
    void TearDown() override {
        if (options_) {
            EXPECT_EQ(ProPDFoptionsFree(options_), PRO_TK_NO_ERROR);
        }
        HostFiles::TearDown();
    }
    ProError Whole(int number, int value) {
        return ProPDFoptionsIntpropertySet(options_, ProPDFOptionType(number), value);
    }
    ProError Flag(int number, int value) {
        return ProPDFoptionsBoolpropertySet(options_, ProPDFOptionType(number), ProBoolean(value));
    }
    ProError Plot(const WideText& path) {
        WideText file = path;
        return ProPDFExport(drawing_, file.data(), options_);
    }
    ProError PlotByProfile(const WideText& path, const WideText& profile = WIDE("vxdop")) {
        WideText file = path, name = profile;
        return ProPDFWithProfileExport(drawing_, file.data(), name.data());
    }
    // How many pages a file says that it has, by each of them.
    int Pages(const WideText& path) {
        const std::string bytes = Read(path);
        int pages = 0;
        for (std::size_t at = bytes.find("/Type /Page "); at != std::string::npos;
             at = bytes.find("/Type /Page ", at + 1)) {
            ++pages;
        }
        return pages;
    }

    ProPDFOptions options_ = nullptr;
    const WideText file_ = WIDE("C:\\Work\\d.pdf");
};

TEST_F(HostPdf, OptionsAreTakenByNumberAndKind) {
    for (const int number : {0, 1, 28}) {
        EXPECT_EQ(Whole(number, 0), PRO_TK_NO_ERROR);
        EXPECT_EQ(Whole(number, 1), PRO_TK_NO_ERROR);
        EXPECT_EQ(Whole(number, -1), PRO_TK_BAD_INPUTS);
        EXPECT_EQ(Whole(number, 3), PRO_TK_BAD_INPUTS);
        EXPECT_EQ(Flag(number, 1), PRO_TK_BAD_INPUTS) << number;
    }
    EXPECT_EQ(Whole(1, 2), PRO_TK_NO_ERROR);
    EXPECT_EQ(Whole(0, 2), PRO_TK_BAD_INPUTS);
    for (const int number : {5, 25}) {
        EXPECT_EQ(Flag(number, 0), PRO_TK_NO_ERROR);
        EXPECT_EQ(Flag(number, 1), PRO_TK_NO_ERROR);
        EXPECT_EQ(Flag(number, 2), PRO_TK_BAD_INPUTS);
        EXPECT_EQ(Whole(number, 1), PRO_TK_BAD_INPUTS) << number;
    }
    EXPECT_EQ(Whole(2, 0), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(ProPDFoptionsIntpropertySet(nullptr, PRO_PDFOPT_FONT_STROKE, 0), PRO_TK_BAD_INPUTS);
    EXPECT_TRUE(Complaints().empty());
}

TEST_F(HostPdf, OptionsThatWereFreedAreKnownForThat) {
    ProPDFoptionsFree(options_);
    EXPECT_EQ(Plot(file_), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Complaints(), Names{"ProPDFExport: PDF options that was freed or handed on"});
    EXPECT_FALSE(Exists(file_));
    options_ = nullptr;
}

TEST_F(HostPdf, WhatNoDrawingIsIsRefused) {
    WideText file = file_;
    EXPECT_EQ(ProPDFExport(part_, file.data(), options_), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(ProPDFExport(drawing_, file.data(), nullptr), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Plot(WIDE("C:\\Nowhere\\d.pdf")), PRO_TK_CANT_WRITE);
    EXPECT_FALSE(Exists(file_));
    EXPECT_TRUE(Complaints().empty());
}

TEST_F(HostPdf, AFileThatIsThereIsReplaced) {
    Write(file_, "old");
    EXPECT_EQ(Plot(file_), PRO_TK_NO_ERROR);
    EXPECT_NE(Read(file_), "old");
}

TEST_F(HostPdf, SheetsGoNowhereWhereTheHostWritesNoOutput) {
    host().writesOutput = false;
    EXPECT_EQ(Plot(file_), PRO_TK_NO_ERROR);
    EXPECT_EQ(Export(WIDE("C:\\Work\\d.dxf")), PRO_TK_NO_ERROR);
    EXPECT_EQ(Plot(WIDE("C:\\Nowhere\\d.pdf")), PRO_TK_CANT_WRITE);
    EXPECT_EQ(Export(WIDE("C:\\Nowhere\\d.dxf")), PRO_TK_CANT_WRITE);
    bool found = true;
    Read(file_, &found);
    EXPECT_FALSE(found);
    Read(WIDE("C:\\Work\\d.dxf"), &found);
    EXPECT_FALSE(found);
}

TEST_F(HostPdf, AViewerIsToldOfOnlyWhenItIsAskedFor) {
    Plot(file_);
    const auto shownBefore = host().shown.size();
    Flag(5, 1);
    Plot(file_);
    ASSERT_GT(host().shown.size(), shownBefore);
    EXPECT_EQ(Utf8(host().shown.back().text), "C:\\Work\\d.pdf is shown in the viewer");
}

TEST_F(HostPdf, AProfileIsLookedForInTheWorkingFolder) {
    EXPECT_EQ(PlotByProfile(file_), PRO_TK_E_NOT_FOUND);
    Write(WIDE("C:\\Work\\vxdop.dop"), "sheets = \"some\"\n");
    EXPECT_EQ(PlotByProfile(file_), PRO_TK_INVALID_FILE);
    EXPECT_EQ(Utf8(host().shown.back().text), "C:\\Work\\vxdop.dop: sheets is one of all, current");
    EXPECT_FALSE(Exists(file_));
    Write(WIDE("C:\\Work\\vxdop.dop"), "sheets = \"current\"\n");
    EXPECT_EQ(PlotByProfile(file_), PRO_TK_NO_ERROR);
    EXPECT_TRUE(Exists(file_));
    EXPECT_TRUE(Complaints().empty());
}

TEST(Profiles, AreReadKeyByKeyAndTellTheirMistakes) {
    const auto read = [](const std::string& text) {
        PlotOptions options;
        const std::string mistake = ReadPlotProfile(text, &options);
        if (!mistake.empty()) return mistake;
        return std::to_string(int(options.sheets)) + std::to_string(int(options.colours)) +
               std::to_string(int(options.strokes));
    };
    EXPECT_EQ(read(""), "000");
    EXPECT_EQ(read("sheets = \"current\"\ncolours = \"black\"\ntexts = \"curves\"\n"), "121");
    EXPECT_EQ(read("sheets = \"all\"\ncolours = \"grey\"\ntexts = \"fonts\"\n"), "010");
    EXPECT_EQ(read("colours = 2\n"), "colours is one of full, grey, black");
    EXPECT_EQ(read("texts = \"\"\n"), "texts is one of fonts, curves");
    EXPECT_EQ(read("paper = \"A3\"\n"), "there is no key paper");
    EXPECT_NE(read("sheets\n"), "000");
}

#ifndef _WIN32
TEST_F(HostPdf, HasAPageForEachSheetOrForTheCurrentOne) {
    Plot(file_);
    EXPECT_EQ(Pages(file_), 3);
    ProDrawingCurrentSheetSet(drawing_, 2);
    Whole(28, 1);
    Plot(file_);
    EXPECT_EQ(Pages(file_), 1);
}

TEST_F(HostPdf, HasTheSameBytesAtAnyTimeAndOthersInOtherColours) {
    Plot(file_);
    const std::string first = Read(file_);
    Plot(file_);
    EXPECT_EQ(Read(file_), first);
    Whole(1, 2);
    Plot(file_);
    EXPECT_NE(Read(file_), first);
}
#endif

// --- Windows of models ---

class HostWindows : public HostFiles {
protected:
    int Window(const WideText& name, ProType type) {
        int id = 0;
        WideText text = name;
        EXPECT_EQ(ProObjectwindowCreate(text.data(), type, &id), PRO_TK_NO_ERROR);
        return id;
    }
};

TEST_F(HostWindows, AModelHasOneAndTheCurrentOneCannotBeDeleted) {
    const int first = Window(WIDE("d"), PRO_DRAWING);
    EXPECT_EQ(Window(WIDE("D"), PRO_DRAWING), first);
    EXPECT_EQ(ProWindowDelete(first), PRO_TK_BAD_CONTEXT);
    const int second = Window(WIDE("box"), PRO_PART);
    EXPECT_NE(second, first);
    ProMdl shown = nullptr;
    EXPECT_EQ(ProWindowMdlGet(second, &shown), PRO_TK_NO_ERROR);
    EXPECT_EQ(shown, part_);
    EXPECT_EQ(ProWindowDelete(second), PRO_TK_NO_ERROR);
    EXPECT_EQ(ProWindowDelete(second), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(ProWindowMdlGet(second, &shown), PRO_TK_BAD_INPUTS);
    EXPECT_NE(host().session.FindByFile("box.prt"), nullptr);
}

TEST_F(HostWindows, TheCurrentOneIsClosedAndThenNoneIsCurrent) {
    EXPECT_EQ(ProWindowCurrentClose(), PRO_TK_NO_ERROR);
    EXPECT_EQ(host().session.CurrentModel(), nullptr);
    EXPECT_EQ(ProWindowCurrentClose(), PRO_TK_BAD_CONTEXT);
    EXPECT_TRUE(Complaints().empty());
}

TEST_F(HostWindows, EraseKeepsWhatTheyShowAndAllThatHangsOnIt) {
    workbench::MakeModels("top: sub(a), b");
    workbench::MakeModels("m12 of bolt");
    workbench::MakeModels("mill.mfg: work(c)");
    host().session.Open(workbench::ModelNamed("top"));
    Play("@ window d.drw");
    host().session.FindByFile("work.asm")->modified = true;
    const ProMdl gone = workbench::ModelNamed("m12").handle;
    EXPECT_EQ(ProMdlEraseNotDisplayed(), PRO_TK_NO_ERROR);
    Names left;
    for (const Model* model : host().session.All()) left.push_back(model->FileName());
    std::sort(left.begin(), left.end());
    EXPECT_EQ(left, (Names{"a.prt", "b.prt", "box.prt", "d.drw", "sub.asm", "top.asm"}));
    const std::string told = Utf8(host().shown.back().text);
    EXPECT_NE(told.find("5 models that are not displayed were erased"), std::string::npos) << told;
    EXPECT_NE(told.find("changed and never saved: "), std::string::npos) << told;
    EXPECT_NE(told.find("work.asm"), std::string::npos) << told;
    ProMdlType type = PRO_MDL_UNUSED;
    EXPECT_EQ(ProMdlTypeGet(gone, &type), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Complaints(), Names{"ProMdlTypeGet: a model that was erased"});
}

TEST_F(HostWindows, EraseEndsSelectionsSurfacesAndViewsOfWhatGoes) {
    Model& plate = workbench::MakePart("plate");
    const ProSurface surface = plate.Surfaces().front()->handle;
    host().session.selections.AddToBuffer({{PRO_PART, -1, plate.handle}, &plate, {}});
    ProView view = Views("D").front()->handle;
    Play("@ close");
    EXPECT_EQ(ProMdlEraseNotDisplayed(), PRO_TK_NO_ERROR);
    EXPECT_TRUE(host().session.selections.buffer().empty());
    EXPECT_EQ(host().session.FindSurface(surface), nullptr);
    EXPECT_EQ(FindView(view), nullptr);
    EXPECT_TRUE(host().session.All().empty());
    EXPECT_EQ(ProMdlEraseNotDisplayed(), PRO_TK_E_NOT_FOUND);
}

}  // namespace
