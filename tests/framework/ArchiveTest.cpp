// The archive's byte layout, checked against bytes written out by hand from the
// layout rules, and its refusal of damaged input.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "framework/Archive.h"

namespace {

using Bytes = std::vector<unsigned char>;

// A serialisable class of the test's own, registered by name like any other.
class CTestPoint : public CObject {
public:
    int m_x = 0;
    void Serialize(CArchive& ar) override {
        if (ar.IsStoring())
            ar << m_x;
        else
            ar >> m_x;
    }
    const CRuntimeClass* GetRuntimeClass() const override { return &classCTestPoint; }
    static const CRuntimeClass classCTestPoint;
};
CObject* MakePoint() { return new CTestPoint; }
const CRuntimeClass CTestPoint::classCTestPoint{"CTestPoint", 2, &MakePoint, &CObject::classCObject};
const AFX_CLASSINIT g_init(&CTestPoint::classCTestPoint);

Bytes Stored(void (*write)(CArchive&)) {
    Bytes out;
    CArchive ar(out, CArchive::store);
    write(ar);
    EXPECT_TRUE(ar.IsOk());
    return out;
}

Bytes Le(std::uint64_t v, int n) {
    Bytes b;
    for (int i = 0; i < n; ++i) b.push_back(static_cast<unsigned char>(v >> (8 * i)));
    return b;
}

Bytes Cat(std::initializer_list<Bytes> parts) {
    Bytes all;
    for (const Bytes& p : parts) all.insert(all.end(), p.begin(), p.end());
    return all;
}

TEST(Archive, NumbersAreLittleEndianOfTheirWidth) {
    Bytes b = Stored([](CArchive& ar) {
        ar << static_cast<unsigned char>(0xAB) << static_cast<unsigned short>(0x1234) << -2
           << static_cast<unsigned long long>(0x0102030405060708ull);
    });
    EXPECT_EQ(b, (Bytes{0xAB, 0x34, 0x12, 0xFE, 0xFF, 0xFF, 0xFF, 8, 7, 6, 5, 4, 3, 2, 1}));

    CArchive in(b, CArchive::load);
    unsigned char c = 0;
    unsigned short w = 0;
    int i = 0;
    unsigned long long q = 0;
    in >> c >> w >> i >> q;
    EXPECT_TRUE(in.IsOk());
    EXPECT_EQ(c, 0xAB);
    EXPECT_EQ(w, 0x1234);
    EXPECT_EQ(i, -2);
    EXPECT_EQ(q, 0x0102030405060708ull);
}

TEST(Archive, CountUsesSixteenBitsBelowTheEscape) {
    struct Case {
        std::uint64_t count;
        Bytes bytes;
    };
    const Case cases[] = {
        {0, {0x00, 0x00}},
        {300, {0x2C, 0x01}},
        {0xFFFE, {0xFE, 0xFF}},
        {0xFFFF, {0xFF, 0xFF, 0xFF, 0xFF, 0x00, 0x00}},
        {70000, {0xFF, 0xFF, 0x70, 0x11, 0x01, 0x00}},
    };
    for (const Case& c : cases) {
        Bytes out;
        CArchive ar(out, CArchive::store);
        ar.WriteCount(c.count);
        EXPECT_EQ(out, c.bytes) << c.count;
        CArchive in(out, CArchive::load);
        EXPECT_EQ(in.ReadCount(), c.count);
        EXPECT_TRUE(in.IsOk());
    }
}

TEST(Archive, StringLengthTakesOneThreeOrSevenBytes) {
    struct Case {
        std::size_t length;
        Bytes prefix;
    };
    const Case cases[] = {
        {0, {0x00}},
        {254, {0xFE}},
        {255, {0xFF, 0xFF, 0x00}},
        {65533, {0xFF, 0xFD, 0xFF}},
        {65534, {0xFF, 0xFF, 0xFF, 0xFE, 0xFF, 0x00, 0x00}},
        {65535, {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x00, 0x00}},
        {70000, {0xFF, 0xFF, 0xFF, 0x70, 0x11, 0x01, 0x00}},
    };
    for (const Case& c : cases) {
        std::string s(c.length, 'x');
        for (std::size_t i = 0; i < s.size(); ++i) s[i] = static_cast<char>('a' + i % 26);
        Bytes out;
        CArchive ar(out, CArchive::store);
        ar << s;
        ASSERT_EQ(out.size(), c.prefix.size() + c.length) << c.length;
        EXPECT_EQ(Bytes(out.begin(), out.begin() + static_cast<long>(c.prefix.size())), c.prefix) << c.length;
        EXPECT_EQ(std::string(out.begin() + static_cast<long>(c.prefix.size()), out.end()), s);
        CArchive in(out, CArchive::load);
        std::string back;
        in >> back;
        EXPECT_TRUE(in.IsOk());
        EXPECT_EQ(back, s);
        EXPECT_EQ(in.BytesLeft(), 0u);
    }
}

TEST(Archive, ObjectsCarryNewClassTagThenClassReference) {
    CTestPoint a, b;
    a.m_x = 7;
    b.m_x = 0x01020304;
    Bytes out;
    {
        CArchive ar(out, CArchive::store);
        ar.WriteObject(&a);
        ar.WriteObject(nullptr);
        ar.WriteObject(&b);
    }
    // New class: tag, schema 2, name length 10, name; then the object's int.
    // The class took map index 1 (0 is null), so later references are 0x8001.
    Bytes expected = Cat({{0xFF, 0xFF, 0x02, 0x00, 0x0A, 0x00},
                          Bytes{'C', 'T', 'e', 's', 't', 'P', 'o', 'i', 'n', 't'},
                          Le(7, 4),
                          {0x00, 0x00},
                          {0x01, 0x80},
                          Le(0x01020304, 4)});
    EXPECT_EQ(out, expected);

    CArchive in(out, CArchive::load);
    auto first = in.ReadObject(&CObject::classCObject);
    auto null = in.ReadObject(&CObject::classCObject);
    auto second = in.ReadObject(&CTestPoint::classCTestPoint);
    ASSERT_TRUE(in.IsOk());
    ASSERT_TRUE(first && second);
    EXPECT_EQ(null, nullptr);
    EXPECT_EQ(static_cast<CTestPoint*>(first.get())->m_x, 7);
    EXPECT_EQ(static_cast<CTestPoint*>(second.get())->m_x, 0x01020304);
}

TEST(Archive, RefusesWhatItCannotTrust) {
    const Bytes name{'C', 'T', 'e', 's', 't', 'P', 'o', 'i', 'n', 't'};
    struct Case {
        const char* what;
        Bytes bytes;
        int cause;
    };
    const Case cases[] = {
        {"unknown class name", Cat({{0xFF, 0xFF, 0x01, 0x00, 0x07, 0x00}, Bytes{'C', 'N', 'o', 'S', 'u', 'c', 'h'}, Le(1, 4)}),
         CArchive::badClass},
        {"class name longer than any class", Cat({{0xFF, 0xFF, 0x02, 0x00, 0xFF, 0x7F}, Bytes(40, 'A')}),
         CArchive::badClass},
        {"schema of a non-versionable class", Cat({{0xFF, 0xFF, 0x03, 0x00, 0x0A, 0x00}, name, Le(1, 4)}),
         CArchive::badSchema},
        {"class reference never defined", {0x05, 0x80, 0, 0, 0, 0}, CArchive::badIndex},
        {"back-reference to an object", Cat({{0xFF, 0xFF, 0x02, 0x00, 0x0A, 0x00}, name, Le(1, 4), {0x02, 0x00}}),
         CArchive::badIndex},
        {"object cut short", Cat({{0xFF, 0xFF, 0x02, 0x00, 0x0A, 0x00}, name, {0x01, 0x00}}), CArchive::endOfFile},
        {"class name cut short", {0xFF, 0xFF, 0x02, 0x00, 0x0A, 0x00, 'C', 'T'}, CArchive::endOfFile},
    };
    for (const Case& c : cases) {
        Bytes bytes = c.bytes;
        CArchive in(bytes, CArchive::load);
        in.ReadObject(&CObject::classCObject);
        if (in.IsOk()) in.ReadObject(&CObject::classCObject);
        EXPECT_EQ(in.GetCause(), c.cause) << c.what;
    }
}

TEST(Archive, StringLengthPastTheEndReadsNothing) {
    const Bytes cases[] = {
        {0x05, 'a', 'b'},
        {0xFF, 0x00, 0x10, 'a'},
        {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x7F},              // 2^31 - 1 bytes promised
        {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF},  // 64-bit length, cut short
        {0xFF},
    };
    for (const Bytes& c : cases) {
        Bytes bytes = c;
        CArchive in(bytes, CArchive::load);
        std::string s = "unchanged";
        in >> s;
        EXPECT_EQ(in.GetCause(), CArchive::endOfFile);
        EXPECT_TRUE(s.empty());
    }
    Bytes wide{0xFF, 0xFE, 0xFF, 0x01, 'a', 0};
    CArchive in(wide, CArchive::load);
    std::string s;
    in >> s;
    EXPECT_EQ(in.GetCause(), CArchive::badIndex);
}

TEST(Archive, FirstFailureStaysAndLaterReadsGiveZero) {
    Bytes bytes{0x01};
    CArchive in(bytes, CArchive::load);
    int i = 99;
    in >> i;
    EXPECT_EQ(in.GetCause(), CArchive::endOfFile);
    EXPECT_EQ(i, 0);
    in.Fail(CArchive::badClass);
    EXPECT_EQ(in.GetCause(), CArchive::endOfFile);
    unsigned short w = 5;
    in >> w;
    EXPECT_EQ(w, 0);
}

TEST(Archive, FileArchiveReadsFromTheCurrentPositionToTheEnd) {
    std::FILE* f = std::tmpfile();
    ASSERT_NE(f, nullptr);
    {
        CArchive ar(f, CArchive::store);
        ar << std::string("skip") << std::string("group");
        ar.Flush();
        EXPECT_TRUE(ar.IsOk());
    }
    std::fseek(f, 5, SEEK_SET);
    CArchive in(f, CArchive::load);
    EXPECT_EQ(in.BytesLeft(), 6u);
    std::string s;
    in >> s;
    EXPECT_EQ(s, "group");
    in >> s;
    EXPECT_EQ(in.GetCause(), CArchive::endOfFile);
    std::fclose(f);
}

}  // namespace
