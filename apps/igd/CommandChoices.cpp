#include "CommandChoices.h"

#include <map>
#include <stdexcept>

#include "QL/CopySetting.h"

namespace igd {
namespace {

struct VerifyWord {
    const char* word;
    std::uint32_t mode;
    const char16_t* method;
};

// In the order the help lists them.
constexpr VerifyWord kVerifyWords[] = {{"md5", QL::IngestTask::kVerifyMD5, u"MD5"},
                                       {"xxh128", QL::IngestTask::kVerifyXXH128, u"xxh128"},
                                       {"xxh3", QL::IngestTask::kVerifyXXH3, u"xxh3"},
                                       {"xxh64", QL::IngestTask::kVerifyXXH64, u"xxh64"},
                                       {"size", QL::IngestTask::kVerifyFileSize, u"FileSize"},
                                       {"bit", QL::IngestTask::kVerifyBitByBit, u"BitByBit"},
                                       {"none", QL::IngestTask::kVerifyNone, u""}};

const VerifyWord& Find(const std::string& word) {
    for (const VerifyWord& known : kVerifyWords)
        if (word == known.word)
            return known;
    throw std::out_of_range("not a --verify word: " + word);
}

} // namespace

const std::vector<std::string>& VerifyWords() {
    static const std::vector<std::string> words = [] {
        std::vector<std::string> all;
        for (const VerifyWord& known : kVerifyWords)
            all.emplace_back(known.word);
        return all;
    }();
    return words;
}

std::uint32_t VerifyModeOf(const std::string& word) {
    return Find(word).mode;
}

Fnd::WString VerifyMethodOf(const std::string& word) {
    return Find(word).method;
}

std::string VerifyWordOf(std::uint32_t mode) {
    for (const VerifyWord& known : kVerifyWords)
        if (mode == known.mode)
            return known.word;
    return std::to_string(mode);
}

const std::vector<std::string>& ConflictWords() {
    static const std::vector<std::string> words{"ask", "skip", "keep-both", "replace", "cancel"};
    return words;
}

std::optional<int> ConflictActionOf(const std::string& word) {
    static const std::map<std::string, int> actions{{"skip", QL::kCopyActionSkip},
                                                    {"keep-both", QL::kCopyActionKeepBoth},
                                                    {"replace", QL::kCopyActionReplace},
                                                    {"cancel", 0}};
    const auto found = actions.find(word);
    return found == actions.end() ? std::nullopt : std::optional<int>(found->second);
}

} // namespace igd
