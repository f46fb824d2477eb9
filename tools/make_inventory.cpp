// Writes a made-up inventory of any size into a folder: what the bench measures with, and what can be looked at.
#include "inventory_maker.h"

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <iostream>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace {

using namespace korvex;

constexpr std::string_view help
    = "usage: make_inventory COUNT FOLDER [--seed N] [--missing] [--duplicates] [--shuffle]\n"
      "\n"
      "Writes body.txt, popis.txt and prach.txt of COUNT made-up sources (1 to 10000000) into FOLDER, which is made\n"
      "when it is not there. The same arguments give the same bytes on every machine.\n"
      "\n"
      "  --seed N      another inventory for every N (a whole number from 0 on; 1 when not given)\n"
      "  --missing     a few per mille of the description records, and of the dust records, are left out\n"
      "  --duplicates  a few per mille of the sources have the number of the source before them\n"
      "  --shuffle     the records of each file are in a random order of their own\n";

/// What the arguments ask for is no use; the text says why.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

struct Order {
    InventoryRequest request;
    std::string folder;
};

std::uint64_t wholeNumber(std::string_view text, const std::string& what)
{
    std::uint64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size())
        throw UsageError(what + " is no whole number: " + std::string(text));
    return value;
}

Order parsed(std::span<const char* const> arguments)
{
    Order order;
    std::vector<std::string_view> places;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string_view argument = arguments[i];
        if (argument == "--missing")
            order.request.leavesOutRecords = true;
        else if (argument == "--duplicates")
            order.request.doublesNumbers = true;
        else if (argument == "--shuffle")
            order.request.shuffles = true;
        else if (argument == "--seed" && i + 1 < arguments.size())
            order.request.seed = wholeNumber(arguments[++i], "the seed");
        else if (argument == "--seed")
            throw UsageError("--seed without a number");
        else if (argument.substr(0, 1) == "-")
            throw UsageError("there is no option " + std::string(argument));
        else
            places.push_back(argument);
    }
    if (places.size() != 2)
        throw UsageError("one count and one folder, please");
    order.request.count = wholeNumber(places[0], "the count");
    if (order.request.count == 0 || order.request.count > InventoryRequest::most)
        throw UsageError("the count is not between 1 and " + std::to_string(InventoryRequest::most));
    order.folder = places[1];
    return order;
}

void write(const std::filesystem::path& path, const std::string& bytes)
{
    std::ofstream file(path, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file)
        throw std::runtime_error(path.string() + " cannot be written");
}

void run(const Order& order)
{
    const std::filesystem::path folder = order.folder;
    std::filesystem::create_directories(folder);
    const auto points = folder / "body.txt";
    const auto description = folder / "popis.txt";
    const auto dust = folder / "prach.txt";
    // The names are those of everybody's inventories: a slip in the folder must not cost anybody theirs.
    for (const auto& path : {points, description, dust}) {
        if (std::filesystem::exists(std::filesystem::symlink_status(path)))
            throw std::runtime_error(path.string() + " is there already");
    }
    const InventoryBytes bytes = makeInventory(order.request);
    write(points, bytes.points);
    write(description, bytes.description);
    write(dust, bytes.dust);
}

}  // namespace

int main(int argc, char** argv)
{
    const auto count = static_cast<std::size_t>(argc);
    const auto arguments = std::span<const char* const>(argv, count).subspan(count > 0 ? 1 : 0);
    for (const std::string_view argument : arguments) {
        if (argument == "--help") {
            std::cout << help;
            return 0;
        }
    }
    try {
        run(parsed(arguments));
    } catch (const UsageError& fault) {
        std::cerr << "make_inventory: " << fault.what() << " (see --help)\n";
        return 2;
    } catch (const std::exception& fault) {
        std::cerr << "make_inventory: " << fault.what() << '\n';
        return 1;
    }
    return 0;
}
