// Tests of a source's records in the three data files: written, read, and read back.
#include "arithmetic_fault.h"
#include "source_fixture.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace korvex {
namespace {

using testing::HasSubstr;

INSTANTIATE_TEST_SUITE_P(Types, EverySource, testing::Values(1, 2, 3), typeName);

// ---- The record of the points file ----

TEST(SourceRecord, APointsRecordHoldsPaddedNumbersAndTheName)
{
    cZdroje source(cBodovyZdroj);
    source.LineSource("12,1234567,987654,350,1,0,0;Kotelna");
    EXPECT_EQ(source.LineSource(), boilerHouse);
}

TEST_P(EverySource, WritesItsOwnTypeCode)
{
    EXPECT_EQ(cZdroje(type()).LineSource(),
        "000000000, 0000000, 0000000, 0000, " + std::string(1, static_cast<char>('0' + type().TypZdrojeId))
            + ", 0, 0 ;");
}

TEST_P(EverySource, DoesNotTakeTheTypeCodeOfARecord)
{
    cZdroje source(type());
    for (const std::string_view code : {"1", "2", "3", "9", "", "x", "1E400"}) {
        source.LineSource("1, 2, 3, 4, " + std::string(code) + ", 5, 6 ;n");
        EXPECT_EQ(source.TypZdrojeId(), type().TypZdrojeId) << code;
        EXPECT_EQ(valuesOf(source).group, 5) << code;
    }
}

TEST_P(EverySource, ReadsEveryFieldOfAPointsRecordIntoItsPlace)
{
    cZdroje source(type());
    source.LineSource("11, 12, 13, 14, 15, 16, 17 ;18");
    EXPECT_EQ(source.ICZ(), 11);
    EXPECT_EQ(source.X(), 12);
    EXPECT_EQ(source.Y(), 13);
    const SourceValues values = valuesOf(source);
    EXPECT_EQ(values.number, 11);
    EXPECT_EQ(values.x, 12);
    EXPECT_EQ(values.y, 13);
    EXPECT_EQ(values.altitude, 14);
    EXPECT_EQ(values.group, 16);
    EXPECT_EQ(values.cluster, 17);
    EXPECT_EQ(values.name, "18");
}

TEST_P(EverySource, LeavesStackParametersAndDustAloneWhenAPointsRecordIsRead)
{
    cZdroje source = filled(type());
    const SourceValues before = valuesOf(source);
    source.LineSource("1, 2, 3, 4, 1, 5, 6 ;jiný");
    const SourceValues after = valuesOf(source);
    EXPECT_EQ(after.stack, before.stack);
    EXPECT_EQ(after.parameters, before.parameters);
    EXPECT_EQ(after.dust, before.dust);
    EXPECT_EQ(after.name, "jiný");
}

TEST_P(EverySource, PointsRecordsRoundTrip)
{
    const std::string code(1, static_cast<char>('0' + type().TypZdrojeId));
    const std::vector<std::string> records = {"000000012, 1234567, 0987654, 0350, " + code + ", 1, 2 ;Kotelna",
        "-000000001, -0000012, -1234567, -0003, " + code + ", -4, -5 ;",
        "2147483647, 2147483647, -2147483648, 12345, " + code + ", 123456, 0 ;Kotelna, sever, 2. patro",
        "000000000, 0000000, 0000000, 0000, " + code + ", 0, 0 ; mezera na obou koncích "};
    for (const std::string& record : records) {
        cZdroje source(type());
        source.LineSource(record);
        EXPECT_EQ(source.LineSource(), record);
    }
}

TEST(SourceRecord, CoordinatesAreRoundedWithTiesToEven)
{
    cZdroje source(cBodovyZdroj);
    source.LineSource("000000012,1234567.6,987654.5,350,1,0,0;X");
    EXPECT_EQ(source.X(), 1234568);
    EXPECT_EQ(source.Y(), 987654);
    EXPECT_EQ(source.NazevZdroje(), "X");
}

TEST(SourceRecord, AfterReadingTheNumberAndNameAreThoseOfTheRecord)
{
    cZdroje source(cBodovyZdroj);
    source.LineSource(boilerHouse);
    EXPECT_EQ(source.ICZ(), 12);
    EXPECT_EQ(source.NazevZdroje(), "Kotelna");
}

std::string nameOf(std::string_view record)
{
    cZdroje source(cBodovyZdroj);
    source.LineSource(record);
    return std::string(source.NazevZdroje());
}

TEST(SourceRecord, TheNameIsTheTextBehindTheFirstSemicolon)
{
    EXPECT_EQ(nameOf("1,2,3,4,1,0,0;Kotelna"), "Kotelna");
    EXPECT_EQ(nameOf("1, 2, 3, 4, 1, 0, 0 ;Kotelna"), "Kotelna");
}

TEST(SourceRecord, TheNameIsNotTrimmed)
{
    EXPECT_EQ(nameOf("1,2,3,4,1,0,0 ;  Kotelna \t"), "  Kotelna \t");
}

TEST(SourceRecord, TheNameMayHoldCommas)
{
    EXPECT_EQ(nameOf("1,2,3,4,1,0,0 ;Kotelna, sever, 1E400"), "Kotelna, sever, 1E400");
}

TEST(SourceRecord, ASecondSemicolonEndsTheName)
{
    EXPECT_EQ(nameOf("1,2,3,4,1,0,0 ;Kotelna;sever"), "Kotelna");
    EXPECT_EQ(nameOf("1,2,3,4,1,0,0 ;;sever"), "");
}

TEST(SourceRecord, ARecordWithoutSemicolonHasNoName)
{
    cZdroje source(cBodovyZdroj);
    source.LineSource(boilerHouse);
    source.LineSource("1,2,3,4,1,0,0 Kotelna");
    EXPECT_EQ(source.NazevZdroje(), "");
}

TEST(SourceRecord, TheNameBehindTheClusterDoesNotDisturbIt)
{
    cZdroje source(cBodovyZdroj);
    source.LineSource("1,2,3,4,1,0,7 ;8 kotlů");
    EXPECT_EQ(valuesOf(source).cluster, 7);
    source.LineSource("1,2,3,4,1,0,7;8");
    EXPECT_EQ(valuesOf(source).cluster, 7);
    source.LineSource("1,2,3,4,1,0, ;8");
    EXPECT_EQ(valuesOf(source).cluster, 0);
}

TEST(SourceRecord, MissingFieldsOfAPointsRecordAreZero)
{
    cZdroje source = filled(cBodovyZdroj);
    source.LineSource("5, 6");
    const SourceValues values = valuesOf(source);
    EXPECT_EQ(values.number, 5);
    EXPECT_EQ(values.x, 6);
    EXPECT_EQ(values.y, 0);
    EXPECT_EQ(values.altitude, 0);
    EXPECT_EQ(values.group, 0);
    EXPECT_EQ(values.cluster, 0);
    EXPECT_EQ(values.name, "");
    source.LineSource("");
    EXPECT_EQ(source.ICZ(), 0);
    EXPECT_EQ(source.X(), 0);
}

TEST(SourceRecord, EveryCommaSplitsEvenBehindTheSemicolonOfAShortRecord)
{
    cZdroje source(cBodovyZdroj);
    source.LineSource("5;Kotelna, 6, 7");
    EXPECT_EQ(source.ICZ(), 5);
    EXPECT_EQ(source.X(), 6);
    EXPECT_EQ(source.Y(), 7);
    EXPECT_EQ(source.NazevZdroje(), "Kotelna, 6, 7");
}

TEST(SourceRecord, TextThatIsNoNumberReadsAsZero)
{
    cZdroje source = filled(cBodovyZdroj);
    source.LineSource("a,b,c,d,e,f,g ;h");
    EXPECT_EQ(source.LineSource(), "000000000, 0000000, 0000000, 0000, 1, 0, 0 ;h");
}

TEST(SourceRecord, LenientNumbersAreReadInEveryField)
{
    cZdroje source(cBodovyZdroj);
    source.LineSource("+ 1 2, 1.2E3, -.5E1, 350 m n. m., 1, 2., 3x ;n");
    EXPECT_EQ(source.LineSource(), "000000012, 0001200, -0000005, 0350, 1, 2, 3 ;n");
}

TEST_P(EverySource, IsUnchangedByAPointsRecordWithANumberOutOfRange)
{
    for (const std::string_view record :
        {"1E10, 2, 3, 4, 1, 5, 6 ;n", "1, 1E400, 3, 4, 1, 5, 6 ;n", "1, 2, -2147483649, 4, 1, 5, 6 ;n",
            "1, 2, 3, 1E39, 1, 5, 6 ;n", "1, 2, 3, 4, 1, 2147483647.5, 6 ;n", "1, 2, 3, 4, 1, 5, 99999999999 ;n"}) {
        cZdroje source = filled(type());
        const SourceValues before = valuesOf(source);
        EXPECT_THROW(source.LineSource(record), ArithmeticFault) << record;
        expectEqual(valuesOf(source), before);
    }
}

TEST_P(EverySource, NamesTheFieldThatIsOutOfRange)
{
    const auto messageOf = [this](std::string_view record) {
        cZdroje source(type());
        try {
            source.LineSource(record);
        } catch (const ArithmeticFault& fault) {
            EXPECT_EQ(fault.kind(), FaultKind::Overflow);
            return std::string(fault.what());
        }
        return std::string("no fault");
    };
    EXPECT_EQ(messageOf("1E10, 2, 3, 4, 1, 5, 6 ;n"), "Číslo je mimo rozsah: pole 1, „1E10“.");
    EXPECT_EQ(messageOf("1, 1E400, 3, 4, 1, 5, 6 ;n"), "Číslo je mimo rozsah: pole 2, „1E400“.");
    EXPECT_THAT(messageOf("1, 2, 3, 4, 1, 1E400, 6 ;n"), HasSubstr("pole 6, „1E400“"));
    EXPECT_THAT(messageOf("1, 2, 3, 4, 1, 5, 1E400 ;n"), HasSubstr("pole 7, "));
}

// ---- The record of the description file ----

TEST(SourceRecord, ANewPointSourceWritesEightZerosAndAClosingZero)
{
    cZdroje source(cBodovyZdroj);
    source.ICZ(5);
    EXPECT_EQ(source.LineParameters(), "000000005, 0, 0, 0, 0, 0, 0, 0, 0, 0");
}

TEST(SourceRecord, APointDescriptionRecordHoldsTheParametersInOrderAndAClosingZero)
{
    cZdroje source(cBodovyZdroj);
    source.ICZ(12);
    source.LineParameters("12,2.5,40,3.2,150,1.2,8.5,0.8,24");
    EXPECT_EQ(source.LineParameters(), "000000012, 2.5, 40, 3.2, 150, 1.2, 8.5, 0.8, 24, 0");
}

TEST(SourceRecord, AreaAndLineDescriptionRecordsHoldNineParametersAndNoClosingZero)
{
    for (const SourceType* type : {&cPlosnyZdroj, &cLiniovyZdroj}) {
        cZdroje source(*type);
        source.ICZ(7);
        source.LineParameters("7,1,2,3,4,5,6,7,8,9,10");
        EXPECT_EQ(source.LineParameters(), "000000007, 1, 2, 3, 4, 5, 6, 7, 8, 9");
    }
}

TEST_P(EverySource, DescriptionRecordsHaveTenFields)
{
    const std::string record = filled(type()).LineParameters();
    int commas = 0;
    for (const char c : record)
        commas += c == ',' ? 1 : 0;
    EXPECT_EQ(commas, 9) << record;
}

TEST_P(EverySource, DescriptionRecordsRoundTrip)
{
    for (const std::string_view eight : {"2.5, 40, 3.2, 150, 1.2, 8.5, 0.8, 24", "0, 0, 0, 0, 0, 0, 0, 0",
             "-1, 1E-05, 1.677722E+07, 0.3333333, -0.0001, 1E+30, 9999999, 1E-45"}) {
        const std::string record = "000000012, " + std::string(eight) + (parameterCount() == 9 ? ", 0.125" : ", 0");
        cZdroje source(type());
        source.ICZ(12);
        source.LineParameters(record);
        EXPECT_EQ(source.LineParameters(), record);
    }
}

TEST_P(EverySource, ReadingBackRestoresAllParameters)
{
    cZdroje source(type());
    for (std::int32_t i = 0; i < parameterCount(); ++i)
        source.Parameters(i, 1.25F * static_cast<float>(i + 1));
    cZdroje copy(type());
    copy.LineParameters(source.LineParameters());
    for (std::int32_t i = 0; i < parameterCount(); ++i)
        EXPECT_EQ(copy.Parameters(i), 1.25F * static_cast<float>(i + 1)) << i;
}

TEST_P(EverySource, DoesNotTakeTheNumberOfADescriptionRecord)
{
    cZdroje source(type());
    source.ICZ(12);
    source.LineParameters("1E400, 1, 2");  // not even when it is out of range
    EXPECT_EQ(source.ICZ(), 12);
    EXPECT_EQ(source.Parameters(0), 1.0F);
    EXPECT_EQ(source.Parameters(1), 2.0F);
}

TEST_P(EverySource, MissingParametersAreZero)
{
    cZdroje source = filled(type());
    source.LineParameters("000000012, 2.5, 40");
    EXPECT_EQ(source.Parameters(0), 2.5F);
    EXPECT_EQ(source.Parameters(1), 40.0F);
    for (std::int32_t i = 2; i < parameterCount(); ++i)
        EXPECT_EQ(source.Parameters(i), 0.0F) << i;
    source.LineParameters("");
    for (std::int32_t i = 0; i < parameterCount(); ++i)
        EXPECT_EQ(source.Parameters(i), 0.0F) << i;
}

TEST(SourceRecord, FieldsBehindTheParametersAreIgnored)
{
    cZdroje point(cBodovyZdroj);
    point.LineParameters("12, 1, 2, 3, 4, 5, 6, 7, 8, 1E400, 1E400");
    EXPECT_EQ(point.Parameters(7), 8.0F);
    EXPECT_EQ(point.LineParameters(), "000000000, 1, 2, 3, 4, 5, 6, 7, 8, 0");
    cZdroje area(cPlosnyZdroj);
    area.LineParameters("12, 1, 2, 3, 4, 5, 6, 7, 8, 9, 1E400");
    EXPECT_EQ(area.Parameters(8), 9.0F);
}

TEST_P(EverySource, LeavesTheCommonDescriptionAloneWhenADescriptionRecordIsRead)
{
    cZdroje source = filled(type());
    SourceValues expected = valuesOf(source);
    source.LineParameters("99, 0");
    expected.parameters = {};
    expectEqual(valuesOf(source), expected);
}

TEST(SourceRecord, ASmallParameterIsWrittenInExponentFormAndReadBackTheSame)
{
    cZdroje source(cLiniovyZdroj);
    source.Parameters(0, 0.000012F);
    EXPECT_EQ(source.LineParameters(), "000000000, 1.2E-05, 0, 0, 0, 0, 0, 0, 0, 0");
    cZdroje copy(cLiniovyZdroj);
    copy.LineParameters(source.LineParameters());
    EXPECT_EQ(copy.Parameters(0), 0.000012F);
}

TEST(SourceRecord, AnEndPointIsSavedWithSevenDigits)
{
    cZdroje source(cLiniovyZdroj);
    source.Parameters(1, 1234567.5F);
    EXPECT_EQ(source.LineParameters(), "000000000, 0, 1234568, 0, 0, 0, 0, 0, 0, 0");
    cZdroje copy(cLiniovyZdroj);
    copy.LineParameters(source.LineParameters());
    EXPECT_EQ(copy.Parameters(1), 1234568.0F);
}

TEST_P(EverySource, IsUnchangedByADescriptionRecordWithANumberOutOfRange)
{
    for (const std::string_view record : {"1, 1E39", "1, 9, 9, 9, 9, 9, 9, 9, 1E-60", "1, 9, 9, -1E400"}) {
        cZdroje source = filled(type());
        const SourceValues before = valuesOf(source);
        EXPECT_THROW(source.LineParameters(record), ArithmeticFault) << record;
        expectEqual(valuesOf(source), before);
    }
}

TEST_P(EverySource, NamesTheParameterFieldThatIsOutOfRange)
{
    cZdroje source(type());
    try {
        source.LineParameters("1, 2, 3, 1E39, 4");
        FAIL() << "no fault";
    } catch (const ArithmeticFault& fault) {
        EXPECT_STREQ(fault.what(), "Číslo je mimo rozsah: pole 4, „1E39“.");
    }
}

TEST(SourceRecord, AParameterThatNoFileCanHoldIsNotWrittenAtAll)
{
    cZdroje source(cBodovyZdroj);
    source.Parameters(5, std::numeric_limits<float>::infinity());
    std::string out = "before";
    EXPECT_THROW(source.appendLineParameters(out), ArithmeticFault);
    EXPECT_EQ(out, "before");
}

// ---- The record of the dust file ----

TEST(SourceRecord, APointDustRecordIsNumberCommaAndDescription)
{
    cZdroje source(cBodovyZdroj);
    source.ICZ(5);
    EXPECT_EQ(source.LineDust(), "000000005,0,0,0");
    source.LineDust("2000,0,2,10,0.4,50,0.6");
    EXPECT_EQ(source.LineDust(), "000000005,2000,0,2,10,0.4,50,0.6");
}

TEST(SourceRecord, AreaAndLineDustRecordsAreTheNumberAlone)
{
    for (const SourceType* type : {&cPlosnyZdroj, &cLiniovyZdroj}) {
        cZdroje source(*type);
        source.ICZ(7);
        EXPECT_EQ(source.LineDust(), "000000007");
        source.LineDust("2000,3");
        EXPECT_EQ(source.LineDust(), "000000007");
    }
}

TEST_P(EverySource, StoresTheDustDescriptionUnchanged)
{
    for (const std::string_view text : {"2000,3", "", " 0,0,0 ", "0,0,0", "no numbers; at all", "1E400"}) {
        cZdroje source(type());
        source.LineDust(text);
        EXPECT_EQ(valuesOf(source).dust, text);
    }
}

TEST(SourceRecord, AnEmptyDustDescriptionIsWrittenEmpty)
{
    cZdroje source(cBodovyZdroj);
    source.ICZ(5);
    source.LineDust("");
    EXPECT_EQ(source.LineDust(), "000000005,");
}

TEST(SourceRecord, ATenDigitNumberIsWrittenWholeInEveryRecord)
{
    cZdroje source(cBodovyZdroj);
    source.ICZ(1234567890);
    EXPECT_EQ(source.LineDust(), "1234567890,0,0,0");
    EXPECT_EQ(source.LineParameters(), "1234567890, 0, 0, 0, 0, 0, 0, 0, 0, 0");
    EXPECT_EQ(source.LineSource().substr(0, 12), "1234567890, ");
}

TEST_P(EverySource, NameAndDustDoNotDisturbEachOther)
{
    std::mt19937 random(3);
    cZdroje source(type());
    std::string name;
    std::string dust = "0,0,0";
    for (int i = 0; i < 500; ++i) {
        const std::string text
            = random() % 4 == 0 ? "0,0,0" : std::string(random() % 200, static_cast<char>('a' + i % 26));
        if (random() % 2 == 0) {
            name = text;
            source.LineSource("1,2,3,4,5,6,7 ;" + name);
        } else {
            dust = text;
            source.LineDust(dust);
        }
        ASSERT_EQ(source.NazevZdroje(), name);
        ASSERT_EQ(valuesOf(source).dust, dust);
    }
}

TEST(SourceRecord, ASourceMayTakeItsOwnTexts)
{
    cZdroje source(cBodovyZdroj);
    source.LineDust("a dust description that is long enough to be moved about in memory");
    source.LineSource("1,2,3,4,5,6,7 ;5,6");
    source.LineDust(source.NazevZdroje());
    EXPECT_EQ(source.LineDust(), "000000001,5,6");
    source.LineSource(source.NazevZdroje());
    EXPECT_EQ(source.ICZ(), 5);
    EXPECT_EQ(source.X(), 6);
}

// ---- All records ----

TEST_P(EverySource, AppendingWritesTheSameAsGetting)
{
    const cZdroje source = filled(type());
    std::string out = "x";
    source.appendLineSource(out);
    EXPECT_EQ(out, "x" + source.LineSource());
    out = "y";
    source.appendLineParameters(out);
    EXPECT_EQ(out, "y" + source.LineParameters());
    out = "z";
    source.appendLineDust(out);
    EXPECT_EQ(out, "z" + source.LineDust());
}

TEST_P(EverySource, RandomSourcesSurviveTheirThreeRecords)
{
    std::mt19937 random(12);
    const auto anyInteger
        = [&random] { return static_cast<std::int32_t>(static_cast<std::uint32_t>(random())) >> (random() % 32); };
    for (int i = 0; i < 2000; ++i) {
        FakeEditor editor(FakeEditor::Answer::Confirm);
        editor.edited.x = anyInteger();
        editor.edited.y = anyInteger();
        editor.edited.altitude = anyInteger();
        editor.edited.group = anyInteger();
        editor.edited.cluster = anyInteger();
        for (auto length = random() % 12; length > 0; --length)
            editor.edited.name += "ab ,"[random() % 4];
        for (std::size_t p = 0; p < static_cast<std::size_t>(parameterCount()); ++p)
            editor.edited.parameters[p] = static_cast<float>(random() % 1'000'000) / 1000.0F;
        editor.edited.dust = "2000," + std::to_string(random() % 100);
        cZdroje source(type());
        source.ICZ(anyInteger());
        source.Edit(editor);

        cZdroje copy(type());
        copy.LineSource(source.LineSource());
        copy.LineParameters(source.LineParameters());
        copy.LineDust(editor.edited.dust);
        expectEqual(valuesOf(copy), valuesOf(source));
        ASSERT_EQ(copy.LineSource(), source.LineSource());
        ASSERT_EQ(copy.LineParameters(), source.LineParameters());
        ASSERT_EQ(copy.LineDust(), source.LineDust());
    }
}

}  // namespace
}  // namespace korvex
