// The main window with an inventory in it: how long the commands on the list take, and what the whole program needs.
#include "quiet_shell.h"

#include "czech_toolkit.h"
#include "load_save.h"
#include "main_window.h"

#include <QAction>
#include <QApplication>
#include <QImage>
#include <QKeyEvent>
#include <QWidget>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstddef>
#include <exception>
#include <functional>
#include <iomanip>
#include <iostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <sys/resource.h>
#include <system_error>
#include <utility>
#include <vector>

namespace {

using namespace korvex;

constexpr int markedEvery = 3;

double peakMegabytes()
{
    constexpr double kibibytesToMegabytes = 1024.0 / 1e6;
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) * kibibytesToMegabytes;
}

void print(std::string_view key, double value)
{
    std::cout << key << ' ' << value << '\n';
}

void expect(bool holds, const std::string& what)
{
    if (!holds)
        throw std::runtime_error("the window does not do what is measured: " + what);
}

/// Times in the order in which they were first taken; prints the median of each.
class Times {
public:
    void take(const std::string& key, const std::function<void()>& action)
    {
        const auto begin = std::chrono::steady_clock::now();
        action();
        const std::chrono::duration<double, std::milli> elapsed = std::chrono::steady_clock::now() - begin;
        auto place = std::find_if(m_times.begin(), m_times.end(), [&key](const auto& one) { return one.first == key; });
        if (place == m_times.end())
            place = m_times.insert(m_times.end(), {key, {}});
        place->second.push_back(elapsed.count());
    }

    void printMedians()
    {
        for (auto& [key, times] : m_times) {
            const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
            std::nth_element(times.begin(), middle, times.end());
            print(key, *middle);
        }
    }

private:
    std::vector<std::pair<std::string, std::vector<double>>> m_times;
};

class ListRun {
public:
    explicit ListRun(const std::string& folder)
        : m_files{folder + "/body.txt", folder + "/popis.txt", folder + "/prach.txt"}
    {
        m_window.show();
        QApplication::processEvents();
    }

    void load()
    {
        timeCommand("window_load_ms", [this] {
            if (!loadSources(m_window, m_files, {}, LoadMode::Replace))
                throw std::runtime_error("the inventory cannot be loaded");
        });
        m_parts.boxes.expectNone();
        expect(list().rowCount() > markedEvery, "there are sources to work with");
    }

    /// Every command once, each from where it has most to do.
    void commands()
    {
        timeCommand("refill_ms", [this] { m_window.refill(); });
        // By name first, so that the sort by number finds the rows in no order.
        timeCommand("sort_name_ms", [this] { list().sortByHeader(SourceListModel::NameColumn); });
        timeCommand("sort_number_ms", [this] { list().sortByHeader(SourceListModel::NumberColumn); });
        expect(list().numberText(0) <= list().numberText(1), "the rows are sorted by number");

        timeCommand("mark_all_ms", [this] { m_window.menu().mnuVSelectAll->trigger(); });
        expect(countMarked() == rowCount(), "all rows are marked");
        timeCommand("unmark_all_ms", [this] { key(Qt::Key_Minus, Qt::KeypadModifier); });
        expect(countMarked() == 0, "no row is marked");
        timeCommand("mark_type_ms", [this] { m_window.menu().mnuSelectBodove->trigger(); });
        const std::size_t stacks = countMarked();
        expect(stacks > 0 && stacks < rowCount(), "the stacks are marked");
        timeCommand("invert_ms", [this] { key(Qt::Key_Asterisk, Qt::KeypadModifier); });
        expect(countMarked() == rowCount() - stacks, "all but the stacks are marked");
        timeCommand("ctrl_a_ms", [this] { key(Qt::Key_A, Qt::ControlModifier); });
        expect(countMarked() == rowCount(), "all rows are marked by the keyboard");

        // Home marks only when it moves.
        key(Qt::Key_End, Qt::NoModifier);
        key(Qt::Key_Home, Qt::NoModifier);
        expect(countMarked() == 1, "the first row is marked alone");
        timeCommand("shift_end_ms", [this] { key(Qt::Key_End, Qt::ShiftModifier); });
        expect(countMarked() == rowCount(), "the rows are marked down to the last");
    }

    void paint()
    {
        m_window.listView().scrollTo(list().index(list().rowCount() / 2, SourceListModel::NumberColumn));
        QApplication::processEvents();
        list().markAll(false);
        const QImage unmarked = screen();
        markEveryThird();
        constexpr int paints = 9;
        for (int i = 0; i < paints; ++i) {
            QImage marked;
            m_times.take("paint_ms", [this, &marked] { marked = screen(); });
            expect(marked != unmarked, "marked rows are seen");
        }
    }

    /// Leaves two thirds of the sources.
    void deleteEveryThird()
    {
        const std::size_t before = rowCount();
        markEveryThird();
        const std::size_t marked = countMarked();
        timeCommand("delete_third_ms", [this] { key(Qt::Key_Delete, Qt::NoModifier); });
        expect(rowCount() == before - marked && list().set().size() == rowCount(), "the marked sources are gone");
    }

    [[nodiscard]] std::size_t rowCount() { return list().rows().count(); }
    void printMedians() { m_times.printMedians(); }

private:
    SourceListModel& list() { return m_window.list(); }
    std::size_t countMarked() { return list().rows().marks().count(); }

    /// Until the list is painted anew: the view puts much of its work off until then.
    void timeCommand(const std::string& key, const std::function<void()>& command)
    {
        m_times.take(key, [&command] {
            command();
            QApplication::processEvents();
        });
    }

    /// The rows in sight as they are on the screen.
    QImage screen()
    {
        QWidget* const viewport = m_window.listView().viewport();
        QImage image(viewport->size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        viewport->render(&image);
        return image;
    }

    void markEveryThird()
    {
        list().markAll(false);
        for (int row = 0; row < list().rowCount(); row += markedEvery)
            list().mark(row, true);
    }

    void key(Qt::Key key, Qt::KeyboardModifiers modifiers)
    {
        QKeyEvent press(QEvent::KeyPress, key, modifiers);
        QApplication::sendEvent(&m_window.listView(), &press);
    }

    SourceFiles m_files;
    bench::QuietShell m_parts;
    frmKORVEXZDR m_window{m_parts.shell()};
    Times m_times;
};

void run(const std::string& folder, int repetitions)
{
    ListRun list(folder);
    list.load();
    std::cout << "sources " << list.rowCount() << '\n';
    // Before sorting by name, which needs the most: this is what it takes to look at an inventory.
    list.paint();
    print("list_peak_mb", peakMegabytes());
    for (int i = 0; i < repetitions; ++i) {
        list.commands();
        list.paint();
        list.deleteEveryThird();
        list.load();
    }
    list.printMedians();
    print("end_peak_mb", peakMegabytes());
}

int numberOf(std::string_view text)
{
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size() ? value : 0;
}

}  // namespace

int main(int argc, char** argv)
{
    const int repetitions = argc == 3 ? numberOf(argv[2]) : 0;
    if (repetitions < 1) {
        std::cerr
            << "usage: list_run FOLDER REPETITIONS\n"
               "Loads FOLDER/body.txt, popis.txt and prach.txt into the window; prints medians of the repetitions.\n";
        return 2;
    }
    const std::string folder = argv[1];
    std::cout << std::fixed << std::setprecision(4);
    try {
        prepareToolkit();
        int ownCount = 1;
        QApplication application(ownCount, argv);
        QApplication::setApplicationName(QStringLiteral("korvexzdr"));
        makeToolkitCzech(application);
        run(folder, repetitions);
    } catch (const std::exception& fault) {
        std::cerr << "list_run: " << fault.what() << '\n';
        return 1;
    }
    return 0;
}
