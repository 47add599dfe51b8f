#include "CommandChoices.h"

#include <map>

#include "QL/CopySetting.h"

namespace igd {
namespace {

struct VerifyWord {
    std::uint32_t mode;
    const char16_t* method;
};

const std::map<std::string, VerifyWord>& VerifyTable() {
    static const std::map<std::string, VerifyWord> table{
        {"md5", {QL::IngestTask::kVerifyMD5, u"MD5"}},
        {"size", {QL::IngestTask::kVerifyFileSize, u"FileSize"}},
        {"bit", {QL::IngestTask::kVerifyBitByBit, u"BitByBit"}},
        {"none", {QL::IngestTask::kVerifyNone, u""}}};
    return table;
}

} // namespace

const std::vector<std::string>& VerifyWords() {
    static const std::vector<std::string> words{"md5", "size", "bit", "none"};
    return words;
}

std::uint32_t VerifyModeOf(const std::string& word) {
    return VerifyTable().at(word).mode;
}

Fnd::WString VerifyMethodOf(const std::string& word) {
    return VerifyTable().at(word).method;
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
