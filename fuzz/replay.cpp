// Runs a target over the files of its corpus and over inputs that are made from them by damaging them; for builds
// without libFuzzer. The damage is the same in every run.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

namespace fs = std::filesystem;

std::string bytesOf(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void tryInput(const std::string& bytes)
{
    const std::vector<std::uint8_t> data(bytes.begin(), bytes.end());
    LLVMFuzzerTestOneInput(data.data(), data.size());
}

class Damage {
public:
    explicit Damage(std::vector<std::string> whole) : m_whole(std::move(whole)) { }

    std::string next()
    {
        std::string text = any();
        for (std::size_t steps = 1 + below(4); steps > 0; --steps)
            step(text);
        return text;
    }

private:
    std::size_t below(std::size_t limit) { return std::uniform_int_distribution<std::size_t>(0, limit - 1)(m_random); }
    const std::string& any() { return m_whole[below(m_whole.size())]; }

    void step(std::string& text)
    {
        static constexpr std::string_view telling = "0123456789.,;-+eE \t\r\n\"/=[]\xE8\x81\xFF";
        const std::size_t at = below(text.size() + 1);
        const std::size_t length = below(text.size() - at + 1);
        switch (below(6)) {
        case 0:
            text.erase(at, std::min<std::size_t>(length, 40));
            break;
        case 1:
            text.insert(at, 1, telling[below(telling.size())]);
            break;
        case 2:
            if (at < text.size())
                text[at] = static_cast<char>(below(256));
            break;
        case 3:
            text.insert(at, text.substr(at, std::min<std::size_t>(length, 200)));
            break;
        case 4: {
            const std::string& other = any();
            const std::size_t from = below(other.size() + 1);
            text.insert(at, other.substr(from, below(100)));
            break;
        }
        default:
            text.resize(at);
        }
    }

    std::vector<std::string> m_whole;
    std::mt19937 m_random{2001};
};

}  // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::cerr << "usage: replay FOLDER COUNT\nRuns the files of the folder, then COUNT damaged ones.\n";
        return 2;
    }
    const fs::path folder = argv[1];
    std::vector<fs::path> paths;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
        if (entry.is_regular_file())
            paths.push_back(entry.path());
    }
    std::sort(paths.begin(), paths.end());
    if (paths.empty()) {
        std::cerr << "there is no input in " << folder << '\n';
        return 2;
    }
    std::vector<std::string> whole;
    for (const fs::path& path : paths) {
        std::cerr << path.filename().string() << '\n';
        whole.push_back(bytesOf(path));
        tryInput(whole.back());
    }
    const int damaged = std::stoi(argv[2]);
    Damage damage(whole);
    for (int i = 0; i < damaged; ++i) {
        const std::string input = damage.next();
        // The input of a law that is broken is left behind for a look.
        std::ofstream("replay-last-input", std::ios::binary) << input;
        tryInput(input);
    }
    std::cout << paths.size() << " inputs and " << damaged << " damaged ones\n";
    return 0;
}
