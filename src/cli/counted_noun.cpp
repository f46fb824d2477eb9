#include "counted_noun.h"

#include "text_output.h"

namespace korvex {

const char* formOf(const CountedNoun& noun, Language language, std::size_t count)
{
    if (language == Language::English)
        return count == 1 ? noun.englishOne : noun.englishMany;
    if (count == 1)
        return noun.czechOne;
    return count >= 2 && count <= 4 ? noun.czechFew : noun.czechMany;
}

std::string countText(std::size_t count)
{
    TextOutput out;
    out << count;
    return out.text();
}

std::string counted(Language language, std::size_t count, const CountedNoun& noun)
{
    return countText(count) + ' ' + formOf(noun, language, count);
}

}  // namespace korvex
