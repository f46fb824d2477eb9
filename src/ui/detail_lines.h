// The details of a report box: a line for each record it is about.
#pragma once

#include <QString>
#include <QStringList>

#include <algorithm>
#include <cstddef>
#include <span>
#include <vector>

namespace korvex {

/// A report can name a million records; nobody reads more than the first ones.
inline constexpr std::size_t mostReportDetails = 1000;

/// The lines of the items, each as text() tells it.
template <class Item, class Text>
[[nodiscard]] QString detailLines(const std::vector<Item>& items, Text text)
{
    QStringList lines;
    for (const Item& item : std::span(items).first(std::min(items.size(), mostReportDetails)))
        lines << text(item);
    if (items.size() > mostReportDetails)
        lines << QStringLiteral("… a dalších %1").arg(items.size() - mostReportDetails);
    return lines.join(QLatin1Char('\n'));
}

}  // namespace korvex
