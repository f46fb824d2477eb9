// What the tests of sources share: an editor that answers in advance, and sources with a value in every field.
#pragma once

#include "source.h"
#include "source_editor.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace korvex {

inline constexpr std::string_view boilerHouse = "000000012, 1234567, 0987654, 0350, 1, 0, 0 ;Kotelna";

/// An editor that answers as told and remembers what it was shown.
class FakeEditor : public SourceEditor {
public:
    enum class Answer { Confirm, Cancel, Throw };

    explicit FakeEditor(Answer answer) : m_answer(answer) { }

    [[nodiscard]] bool edit(const SourceType& type, SourceValues& values) override
    {
        ++calls;
        shownType = &type;
        shown = values;
        values = edited;
        if (m_answer == Answer::Throw)
            throw std::runtime_error("the window broke down");
        return m_answer == Answer::Confirm;
    }

    int calls = 0;
    const SourceType* shownType = nullptr;
    SourceValues shown;
    SourceValues edited;

private:
    Answer m_answer;
};

/// What a source holds. Only an editor sees altitude, group, cluster and the dust of areas; this one cancels, so that
/// nothing changes but EditOk.
inline SourceValues valuesOf(cZdroje& source)
{
    FakeEditor editor(FakeEditor::Answer::Cancel);
    source.Edit(editor);
    return editor.shown;
}

inline void expectEqual(const SourceValues& one, const SourceValues& other)
{
    EXPECT_EQ(one.number, other.number);
    EXPECT_EQ(one.stack, other.stack);
    EXPECT_EQ(one.name, other.name);
    EXPECT_EQ(one.x, other.x);
    EXPECT_EQ(one.y, other.y);
    EXPECT_EQ(one.altitude, other.altitude);
    EXPECT_EQ(one.group, other.group);
    EXPECT_EQ(one.cluster, other.cluster);
    EXPECT_EQ(one.parameters, other.parameters);
    EXPECT_EQ(one.dust, other.dust);
}

/// A source with a different value in every field.
inline cZdroje filled(const SourceType& type)
{
    cZdroje source(type);
    source.LineSource("000000012, 0000101, 0000102, 0103, 1, 104, 105 ;Kotelna, sever");
    source.LineParameters("000000012, 1.5, 2.5, 3.5, 4.5, 5.5, 6.5, 7.5, 8.5, 9.5");
    source.LineDust("2000,0,1,10,1");
    return source;
}

/// Different from filled() in every field, the ones that nobody may change included.
inline SourceValues editedValues()
{
    SourceValues values;
    values.number = 999;
    values.stack = 77;
    values.name = "Nový název";
    values.x = -201;
    values.y = 202;
    values.altitude = 203;
    values.group = 204;
    values.cluster = 205;
    values.parameters = {11.0F, 12.0F, 13.0F, 14.0F, 15.0F, 16.0F, 17.0F, 18.0F, 19.0F};
    values.dust = "1500,7";
    return values;
}

/// A rule that holds for all three types; the parameter is the type code.
class EverySource : public testing::TestWithParam<std::int32_t> {
protected:
    [[nodiscard]] const SourceType& type() const
    {
        switch (GetParam()) {
        case 1:
            return cBodovyZdroj;
        case 2:
            return cPlosnyZdroj;
        default:
            return cLiniovyZdroj;
        }
    }
    [[nodiscard]] std::int32_t parameterCount() const { return type().parameterCount; }
};

inline std::string typeName(const testing::TestParamInfo<std::int32_t>& parameter)
{
    switch (parameter.param) {
    case 1:
        return "Point";
    case 2:
        return "Area";
    default:
        return "Line";
    }
}

}  // namespace korvex
