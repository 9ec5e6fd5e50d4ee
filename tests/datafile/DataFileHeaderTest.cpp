#include <gtest/gtest.h>

#include <cstdio>

#include "TestFiles.h"
#include "datafile/DataFile.h"
#include "framework/Config.h"

namespace {

struct PrecisionGuard {
    int saved = cfg_GetDoublePrecOutput();
    ~PrecisionGuard() { cfg_SetDoublePrecOutput(saved); }
};

std::string WriteHeader(const TempDir& dir, int kind, const char* type, int reinit, long count, const char* ident,
                        const std::string& title) {
    std::string path = dir.Path("h.dat");
    int err = 0;
    FILE* f = op_OpenDataFile(&err, path.c_str(), 4, false);
    EXPECT_EQ(op_WriteFileHdr(f, false, kind, type, reinit, count, 0, 0, ident, title), 0);
    std::fclose(f);
    return test_ReadBytes(path);
}

TEST(DataFileHeader, WritesTheLayoutByteForByte) {
    PrecisionGuard guard;
    TempDir dir;
    cfg_SetDoublePrecOutput(1);
    std::string expected =
        "203 \r\n"
        "Output file for:WAIT                     by:QUILLSTAT VIEWR          \r\n"
        "Data for:Waiting time\r\n"
        "Run date:Tally     YD           1\r\n"
        "File Version: \x07QUILLSTATFMT\r\n\x1a";
    EXPECT_EQ(WriteHeader(dir, 3, "Tally", 1, 1, "WAIT", "Waiting time"), expected);
}

TEST(DataFileHeader, FlagsFollowReinitAndTheExactPrecisionSetting) {
    PrecisionGuard guard;
    TempDir dir;
    struct Case {
        int reinit;
        int precision;
        char reinitFlag;
        char precisionFlag;
    } cases[] = {{1, 1, 'Y', 'D'}, {0, 1, 'N', 'D'}, {2, 0, 'N', 'S'}, {1, 2, 'Y', 'S'}};
    for (const Case& c : cases) {
        cfg_SetDoublePrecOutput(c.precision);
        std::string bytes = WriteHeader(dir, 1, "DSTAT", c.reinit, 12, "ABCDEFGHIJKLMNOPQRSTUVWXYZ", "");
        std::string line4 = std::string("Run date:DSTAT     ") + c.reinitFlag + c.precisionFlag + "          12\r\n";
        EXPECT_NE(bytes.find(line4), std::string::npos) << c.reinit << " " << c.precision;
        // The identifier is cut at 24 characters.
        EXPECT_NE(bytes.find("Output file for:ABCDEFGHIJKLMNOPQRSTUVWX by:"), std::string::npos);
    }
}

TEST(DataFileHeader, ReadsWhatAnotherWriterWrote) {
    TempDir dir;
    HeaderFields fields;
    fields.kind = 2;
    fields.ident = "LEVEL";
    fields.title = "Tank level";
    fields.type = "CSTAT";
    fields.reinit = false;
    fields.isDouble = false;
    fields.count = 42;
    std::string path = dir.Path("in.dat");
    test_WriteDataFile(path, fields, {{1.0, 2.0}});
    int err = 0;
    FILE* f = op_OpenDataFile(&err, path.c_str(), 2, true);
    ASSERT_NE(f, nullptr);
    DataFileHeader h;
    ASSERT_EQ(op_ReadFileHdr(f, false, &h), 0);
    EXPECT_EQ(h.kind, 2);
    EXPECT_STREQ(h.type, "CSTAT");
    EXPECT_EQ(h.reinit, 0);
    EXPECT_EQ(h.isDouble, 0);
    EXPECT_EQ(h.count, 42);
    EXPECT_STREQ(h.ident, "LEVEL");
    EXPECT_EQ(h.identLen, 5);
    EXPECT_EQ(h.title, "Tank level");
    EXPECT_EQ(h.titleLen, 10);
    EXPECT_EQ(h.hdrStatus, 50);
    // The stream is left at the first record.
    double t = 0, v = 0;
    op_ReadPair(f, h.isDouble, &t, &v);
    EXPECT_EQ(t, 1.0);
    EXPECT_EQ(v, 2.0);
    std::fclose(f);
}

// Each case: the bytes of a file and whether its header is accepted.
TEST(DataFileHeader, RejectsDamagedHeaders) {
    TempDir dir;
    HeaderFields fields;
    std::string good = test_HeaderBytes(fields);
    std::string line4End = "      1\r\n";
    std::size_t afterLine4 = good.find(line4End) + line4End.size();
    auto withGap = [&](std::size_t bytesBeforeEnd) {
        return good.substr(0, afterLine4) + std::string(bytesBeforeEnd, 'x') + "\x1a";
    };
    struct Case {
        const char* name;
        std::string bytes;
        bool accepted;
    } cases[] = {
        {"good", good, true},
        {"number 200", "200" + good.substr(3), false},
        {"number 208", "208" + good.substr(3), false},
        {"number 201", "201" + good.substr(3), true},
        {"four-digit number read as its first three", "2071" + good.substr(3), true},
        {"50 bytes before the Ctrl-Z", withGap(50), true},
        {"51 bytes before the Ctrl-Z", withGap(51), false},
        {"no Ctrl-Z", good.substr(0, good.size() - 1), false},
        {"cut in line 3", good.substr(0, 90), false},
        {"empty file", "", false},
        {"text file", "hello world\n", false},
    };
    for (const Case& c : cases) {
        std::string path = dir.Path("d.dat");
        test_WriteBytes(path, c.bytes);
        int kind = -1, reinit = 0, count = 0;
        std::string title;
        int rc = op_CheckFileHdr(path.c_str(), &kind, &reinit, &count, &title, 2);
        EXPECT_EQ(rc, c.accepted ? 0 : 15928) << c.name;
        if (!c.accepted) {
            EXPECT_EQ(kind, 0) << c.name;
        }
    }
}

TEST(DataFileHeader, CheckReportsOpenFailures) {
    TempDir dir;
    int kind = 0, reinit = 0, count = 0;
    std::string title;
    EXPECT_EQ(op_CheckFileHdr(dir.Path("missing.dat").c_str(), &kind, &reinit, &count, &title, 2), 23);
    // A folder exists but is no data file.
    int rc = op_CheckFileHdr(dir.Dir().string().c_str(), &kind, &reinit, &count, &title, 2);
    EXPECT_TRUE(rc == 15832 || rc == 15928) << rc;
    EXPECT_EQ(op_GetFileKind(dir.Path("missing.dat").c_str()), -1);
    EXPECT_EQ(op_GetFileReinit(dir.Path("missing.dat").c_str()), -1);
}

TEST(DataFileHeader, ExportStyleRoundTrip) {
    TempDir dir;
    std::string path = dir.Path("x.dax");
    int err = 0;
    FILE* f = op_OpenDataFile(&err, path.c_str(), 5, false);
    ASSERT_EQ(op_WriteFileHdr(f, true, 3, "Tally", 1, 7, 4, 12, "WAIT", "Waiting time"), 0);
    std::fclose(f);
    EXPECT_EQ(test_ReadBytes(path),
              "   203        Tally   Y        \n"
              "     7        4       12\n"
              "WAIT\n"
              "Waiting time\n");
    f = op_OpenDataFile(&err, path.c_str(), 0, true);
    DataFileHeader h;
    ASSERT_EQ(op_ReadFileHdr(f, true, &h), 0);
    std::fclose(f);
    EXPECT_EQ(h.kind, 3);
    EXPECT_STREQ(h.type, "     Tally");  // not trimmed in the export header
    EXPECT_EQ(h.reinit, 1);
    EXPECT_EQ(h.count, 7);
    EXPECT_STREQ(h.ident, "WAIT");
    EXPECT_EQ(h.title, "Waiting time");
}

TEST(DataFileHeader, ExportStyleNumberRanges) {
    TempDir dir;
    struct Case {
        const char* number;
        int rc;
        int kind;
    } cases[] = {{"150", 0, 50}, {"250", 0, 50}, {"101", 0, 1}, {"299", 0, 99},
                 {"100", 15928, 0}, {"200", 15928, 0}, {"300", 15928, 0}, {"abc", 15928, 0}};
    for (const Case& c : cases) {
        std::string path = dir.Path("x.dax");
        test_WriteBytes(path, std::string(c.number) + "        Tally   N        \n1 1 1\nA\nB\n");
        int err = 0;
        FILE* f = op_OpenDataFile(&err, path.c_str(), 0, true);
        DataFileHeader h;
        EXPECT_EQ(op_ReadFileHdr(f, true, &h), c.rc) << c.number;
        EXPECT_EQ(h.kind, c.kind) << c.number;
        std::fclose(f);
    }
}

TEST(DataFileHeader, ExportTitleLengthIsCappedAndCut) {
    TempDir dir;
    std::string path = dir.Path("x.dax");
    std::string longTitle(70, 't');
    test_WriteBytes(path, "   204       Output   N        \n     1        9       99\nABCDEFGHIJKL\n" + longTitle + "\n");
    int err = 0;
    FILE* f = op_OpenDataFile(&err, path.c_str(), 0, true);
    DataFileHeader h;
    ASSERT_EQ(op_ReadFileHdr(f, true, &h), 0);
    std::fclose(f);
    EXPECT_EQ(h.titleLen, 60);
    EXPECT_EQ(h.title, std::string(60, 't'));
    EXPECT_STREQ(h.ident, "ABCDEFGHI");
}

}  // namespace
