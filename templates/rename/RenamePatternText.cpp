#include "templates/rename/RenamePatternText.h"

#include <array>
#include <utility>

#include "fluxcore/ZString.h"

namespace IGD {
namespace {

using Token = std::pair<std::u16string_view, std::string_view>;

// The order counts: each token is replaced all through the text before the next one is looked for.
constexpr std::array<Token, 7> kTokens{{
    {u"%Y", "$$$/Quillon/Libraries/IngestDialog/RenameEdit_Year4=YYYY"},
    {u"%y", "$$$/Quillon/Libraries/IngestDialog/RenameEdit_Year2=YY"},
    {u"%m", "$$$/Quillon/Libraries/IngestDialog/RenameEdit_Month=MM"},
    {u"%d", "$$$/Quillon/Libraries/IngestDialog/RenameEdit_Day=DD"},
    {u"%H", "$$$/Quillon/Libraries/IngestDialog/RenameEdit_Hour=HH"},
    {u"%M", "$$$/Quillon/Libraries/IngestDialog/RenameEdit_Minute=MM"},
    {u"%S", "$$$/Quillon/Libraries/IngestDialog/RenameEdit_Second=SS"},
}};

void ReplaceAll(Fnd::WString& text, Fnd::WStringView token, const Fnd::WString& shown) {
    for (auto at = text.find(token); at != Fnd::WString::npos; at = text.find(token, at + shown.size()))
        text.replace(at, token.size(), shown);
}

} // namespace

Fnd::WString PatternDisplayText(Fnd::WStringView pattern) {
    Fnd::WString text(pattern);
    for (const auto& [token, key] : kTokens)
        if (text.find(token) != Fnd::WString::npos)
            ReplaceAll(text, token, fluxcore::Localize(key));
    return text;
}

Fnd::WString PatternWithKind(std::string_view templateKey, Fnd::WStringView pattern,
                             std::string_view kindKey) {
    return fluxcore::Localize(templateKey, {PatternDisplayText(pattern), fluxcore::Localize(kindKey)});
}

} // namespace IGD
