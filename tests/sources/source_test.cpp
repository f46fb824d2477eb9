// Tests of one source: its types, initial values, number, parameters and editing.
#include "source_fixture.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace korvex {
namespace {

INSTANTIATE_TEST_SUITE_P(Types, EverySource, testing::Values(1, 2, 3), typeName);

// ---- Types ----

TEST(SourceTypes, APointSourceIsType1WithIcon1AndEightParameters)
{
    const cZdroje source(cBodovyZdroj);
    EXPECT_EQ(source.TypZdroje(), "Bodový zdroj");
    EXPECT_EQ(source.TypZdrojeId(), 1);
    EXPECT_EQ(source.Icon(), 1);
    EXPECT_EQ(source.type().parameterCount, 8);
}

TEST(SourceTypes, AnAreaSourceIsType2WithIcon3AndNineParameters)
{
    const cZdroje source(cPlosnyZdroj);
    EXPECT_EQ(source.TypZdroje(), "Plošný zdroj");
    EXPECT_EQ(source.TypZdrojeId(), 2);
    EXPECT_EQ(source.Icon(), 3);
    EXPECT_EQ(source.type().parameterCount, 9);
}

TEST(SourceTypes, ALineSourceIsType3WithIcon2AndNineParameters)
{
    const cZdroje source(cLiniovyZdroj);
    EXPECT_EQ(source.TypZdroje(), "Liniový zdroj");
    EXPECT_EQ(source.TypZdrojeId(), 3);
    EXPECT_EQ(source.Icon(), 2);
    EXPECT_EQ(source.type().parameterCount, 9);
}

TEST(SourceTypes, OnlyPointSourcesHaveDust)
{
    EXPECT_TRUE(cBodovyZdroj.hasDust);
    EXPECT_FALSE(cPlosnyZdroj.hasDust);
    EXPECT_FALSE(cLiniovyZdroj.hasDust);
}

TEST(SourceTypes, TypeCodesOneToThreeHaveATypeAndNoOthers)
{
    EXPECT_EQ(sourceTypeOf(1), &cBodovyZdroj);
    EXPECT_EQ(sourceTypeOf(2), &cPlosnyZdroj);
    EXPECT_EQ(sourceTypeOf(3), &cLiniovyZdroj);
    for (const std::int32_t code :
        {0, 4, -1, 257, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()})
        EXPECT_EQ(sourceTypeOf(code), nullptr) << code;
}

TEST_P(EverySource, IsTheTypeItWasMadeOf)
{
    EXPECT_EQ(&cZdroje(type()).type(), &type());
}

// ---- A new source ----

TEST_P(EverySource, StartsEmptyWithTheDustOfANewSource)
{
    cZdroje source(type());
    EXPECT_EQ(source.ICZ(), 0);
    EXPECT_EQ(source.NazevZdroje(), "");
    EXPECT_EQ(source.X(), 0);
    EXPECT_EQ(source.Y(), 0);
    EXPECT_FALSE(source.EditOk());
    SourceValues expected;
    expected.stack = source.KOMIN();
    expected.dust = "0,0,0";
    expectEqual(valuesOf(source), expected);
    for (std::int32_t i = 0; i < parameterCount(); ++i)
        EXPECT_EQ(source.Parameters(i), 0.0F) << i;
}

TEST(Source, TheStackNumberStartsAt1ForPointsAnd0ForAreasAndLines)
{
    EXPECT_EQ(cZdroje(cBodovyZdroj).KOMIN(), 1);
    EXPECT_EQ(cZdroje(cPlosnyZdroj).KOMIN(), 0);
    EXPECT_EQ(cZdroje(cLiniovyZdroj).KOMIN(), 0);
}

TEST_P(EverySource, KeepsItsStackNumberWhenItsRecordsAreLoaded)
{
    const std::int32_t before = cZdroje(type()).KOMIN();
    EXPECT_EQ(filled(type()).KOMIN(), before);
}

TEST_P(EverySource, HasCkuZeroWhateverWasLoaded)
{
    EXPECT_EQ(cZdroje(type()).CKU(), 0);
    EXPECT_EQ(filled(type()).CKU(), 0);
}

// ---- The number ----

TEST(Source, SettingTheNumberNamesTheSourceAfterItsTypeAndNumber)
{
    cZdroje point(cBodovyZdroj);
    point.ICZ(12);
    EXPECT_EQ(point.NazevZdroje(), "Bodový zdroj 12");
    cZdroje area(cPlosnyZdroj);
    area.ICZ(7);
    EXPECT_EQ(area.NazevZdroje(), "Plošný zdroj 7");
    cZdroje line(cLiniovyZdroj);
    line.ICZ(3);
    EXPECT_EQ(line.NazevZdroje(), "Liniový zdroj 3");
}

TEST(Source, NumberZeroStandsInTheNameToo)
{
    cZdroje source(cBodovyZdroj);
    source.ICZ(0);
    EXPECT_EQ(source.NazevZdroje(), "Bodový zdroj 0");
}

TEST(Source, TheNumberInTheNameIsNotPadded)
{
    cZdroje source(cLiniovyZdroj);
    source.ICZ(50001);
    EXPECT_EQ(source.NazevZdroje(), "Liniový zdroj 50001");
    source.ICZ(std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(source.NazevZdroje(), "Liniový zdroj -2147483648");
}

TEST(Source, MinusOneIsANumberLikeAnyOther)
{
    cZdroje source(cPlosnyZdroj);
    source.ICZ(-1);
    EXPECT_EQ(source.ICZ(), -1);
    EXPECT_EQ(source.NazevZdroje(), "Plošný zdroj -1");
    EXPECT_EQ(source.LineDust(), "-000000001");
}

TEST_P(EverySource, SettingTheNumberOverwritesTheNameAndNothingElse)
{
    cZdroje source = filled(type());
    SourceValues expected = valuesOf(source);
    source.ICZ(42);
    expected.number = 42;
    expected.name = std::string(type().TypZdroje) + " 42";
    expectEqual(valuesOf(source), expected);
}

TEST_P(EverySource, KeepsANameThatIsSetAfterTheNumber)
{
    cZdroje source(type());
    source.ICZ(12);
    source.LineSource(boilerHouse);
    EXPECT_EQ(source.NazevZdroje(), "Kotelna");
}

// ---- Parameters and position ----

TEST_P(EverySource, EveryParameterIsHeldByItself)
{
    cZdroje source(type());
    for (std::int32_t i = 0; i < parameterCount(); ++i)
        source.Parameters(i, static_cast<float>(i) + 0.5F);
    for (std::int32_t i = 0; i < parameterCount(); ++i)
        EXPECT_EQ(source.Parameters(i), static_cast<float>(i) + 0.5F) << i;
}

TEST_P(EverySource, AParameterBeyondTheTypeIsAnIndexErrorAndChangesNothing)
{
    cZdroje source = filled(type());
    const SourceValues before = valuesOf(source);
    for (const std::int32_t index : {-1, parameterCount(), 9, 10, std::numeric_limits<std::int32_t>::min(),
             std::numeric_limits<std::int32_t>::max()}) {
        EXPECT_THROW(static_cast<void>(source.Parameters(index)), std::out_of_range) << index;
        EXPECT_THROW(source.Parameters(index, 99.0F), std::out_of_range) << index;
    }
    expectEqual(valuesOf(source), before);
}

TEST(Source, IndexEightIsTheNinthParameterOfAreasAndLinesOnly)
{
    EXPECT_THROW(static_cast<void>(filled(cBodovyZdroj).Parameters(8)), std::out_of_range);
    EXPECT_EQ(filled(cPlosnyZdroj).Parameters(8), 9.5F);
    EXPECT_EQ(filled(cLiniovyZdroj).Parameters(8), 9.5F);
}

TEST_P(EverySource, XAndYCanBeSet)
{
    cZdroje source = filled(type());
    SourceValues expected = valuesOf(source);
    source.X(std::numeric_limits<std::int32_t>::min());
    source.Y(std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(source.X(), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(source.Y(), std::numeric_limits<std::int32_t>::max());
    expected.x = source.X();
    expected.y = source.Y();
    expectEqual(valuesOf(source), expected);
}

// ---- Editing ----

TEST_P(EverySource, ShowsTheEditorOfItsTypeAllItsValues)
{
    cZdroje source = filled(type());
    FakeEditor editor(FakeEditor::Answer::Confirm);
    source.Edit(editor);
    EXPECT_EQ(editor.calls, 1);
    EXPECT_EQ(editor.shownType, &type());
    SourceValues expected;
    expected.number = 12;
    expected.stack = type().KOMIN;
    expected.name = "Kotelna, sever";
    expected.x = 101;
    expected.y = 102;
    expected.altitude = 103;
    expected.group = 104;
    expected.cluster = 105;
    for (std::int32_t i = 0; i < parameterCount(); ++i)
        expected.parameters[static_cast<std::size_t>(i)] = 1.5F + static_cast<float>(i);
    expected.dust = "2000,0,1,10,1";
    expectEqual(editor.shown, expected);
}

TEST_P(EverySource, TakesOverTheValuesOfAConfirmedEdit)
{
    cZdroje source = filled(type());
    FakeEditor editor(FakeEditor::Answer::Confirm);
    editor.edited = editedValues();
    source.Edit(editor);
    EXPECT_TRUE(source.EditOk());
    EXPECT_EQ(source.NazevZdroje(), "Nový název");
    EXPECT_EQ(source.X(), -201);
    EXPECT_EQ(source.Y(), 202);
    for (std::int32_t i = 0; i < parameterCount(); ++i)
        EXPECT_EQ(source.Parameters(i), 11.0F + static_cast<float>(i)) << i;
    const SourceValues values = valuesOf(source);
    EXPECT_EQ(values.altitude, 203);
    EXPECT_EQ(values.group, 204);
    EXPECT_EQ(values.cluster, 205);
    EXPECT_EQ(values.dust, "1500,7");
}

TEST_P(EverySource, DoesNotReadBackTheNumberAndTheStackNumber)
{
    cZdroje source = filled(type());
    FakeEditor editor(FakeEditor::Answer::Confirm);
    editor.edited = editedValues();
    source.Edit(editor);
    EXPECT_EQ(source.ICZ(), 12);
    EXPECT_EQ(source.KOMIN(), type().KOMIN);
    EXPECT_EQ(source.NazevZdroje(), "Nový název");
}

TEST_P(EverySource, IsUnchangedByACancelledEdit)
{
    cZdroje source = filled(type());
    const SourceValues before = valuesOf(source);
    FakeEditor editor(FakeEditor::Answer::Cancel);
    editor.edited = editedValues();
    source.Edit(editor);
    EXPECT_FALSE(source.EditOk());
    expectEqual(valuesOf(source), before);
}

TEST_P(EverySource, IsUnchangedByAnEditThatBreaksDown)
{
    cZdroje source = filled(type());
    const SourceValues before = valuesOf(source);
    FakeEditor confirming(FakeEditor::Answer::Confirm);
    confirming.edited = before;
    source.Edit(confirming);
    ASSERT_TRUE(source.EditOk());
    FakeEditor breaking(FakeEditor::Answer::Throw);
    breaking.edited = editedValues();
    EXPECT_THROW(source.Edit(breaking), std::runtime_error);
    EXPECT_FALSE(source.EditOk());
    expectEqual(valuesOf(source), before);
}

TEST_P(EverySource, TellsWhetherTheLastEditWasConfirmed)
{
    cZdroje source(type());
    EXPECT_FALSE(source.EditOk());
    FakeEditor confirming(FakeEditor::Answer::Confirm);
    FakeEditor cancelling(FakeEditor::Answer::Cancel);
    source.Edit(confirming);
    EXPECT_TRUE(source.EditOk());
    source.Edit(cancelling);
    EXPECT_FALSE(source.EditOk());
    source.Edit(confirming);
    EXPECT_TRUE(source.EditOk());
}

TEST(Source, ANinthParameterFromTheEditorOfAPointIsNotTakenOver)
{
    cZdroje source(cBodovyZdroj);
    FakeEditor editor(FakeEditor::Answer::Confirm);
    editor.edited = editedValues();
    source.Edit(editor);
    EXPECT_EQ(valuesOf(source).parameters[8], 0.0F);
    EXPECT_EQ(source.LineParameters(), "000000000, 11, 12, 13, 14, 15, 16, 17, 18, 0");
}

TEST_P(EverySource, ANumberIsGivenBeforeTheEditAndItsNameIsShown)
{
    cZdroje source(type());
    source.ICZ(50001);
    FakeEditor editor(FakeEditor::Answer::Cancel);
    source.Edit(editor);
    EXPECT_EQ(editor.shown.number, 50001);
    EXPECT_EQ(editor.shown.name, std::string(type().TypZdroje) + " 50001");
    EXPECT_EQ(editor.shown.dust, "0,0,0");
}

// ---- Ownership ----

TEST_P(EverySource, IsMovedWithAllItsValues)
{
    cZdroje source = filled(type());
    const SourceValues before = valuesOf(source);
    cZdroje moved(std::move(source));
    expectEqual(valuesOf(moved), before);
    EXPECT_EQ(&moved.type(), &type());
}

TEST(Source, TwoSourcesShareNothing)
{
    cZdroje one = filled(cBodovyZdroj);
    cZdroje other = filled(cBodovyZdroj);
    other.LineSource("1, 2, 3, 4, 1, 5, 6 ;jiný");
    other.LineDust("");
    other.Parameters(0, 99.0F);
    EXPECT_EQ(one.NazevZdroje(), "Kotelna, sever");
    EXPECT_EQ(one.LineDust(), "000000012,2000,0,1,10,1");
    EXPECT_EQ(one.Parameters(0), 1.5F);
}

}  // namespace
}  // namespace korvex
