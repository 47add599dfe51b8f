#include "ReplayScript.h"

#include <array>
#include <fstream>
#include <sstream>
#include <utility>

namespace igd::dialog {
namespace {

// How many words a step takes: none, one that runs to the end of the line, or a control id
// followed by a value that runs to the end of the line.
enum class Words { None, Rest, ControlAndRest, Control };

struct StepForm {
    StepKind kind;
    const char* name;
    Words words;
};

constexpr std::array<StepForm, 14> kSteps{{
    {StepKind::Ingest, "ingest", Words::None},
    {StepKind::Browse, "browse", Words::Rest},
    {StepKind::Tick, "tick", Words::Rest},
    {StepKind::Untick, "untick", Words::Rest},
    {StepKind::Press, "press", Words::Control},
    {StepKind::Set, "set", Words::ControlAndRest},
    {StepKind::Type, "type", Words::ControlAndRest},
    {StepKind::Answer, "answer", Words::Rest},
    {StepKind::Choose, "choose", Words::Rest},
    {StepKind::Screenshot, "screenshot", Words::Rest},
    {StepKind::Title, "title", Words::Rest},
    {StepKind::WaitBatch, "wait-batch", Words::None},
    {StepKind::Dump, "dump", Words::None},
    {StepKind::Quit, "quit", Words::None},
}};

std::string Trim(const std::string& text) {
    const std::size_t first = text.find_first_not_of(" \t\r");
    if (first == std::string::npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

// The first word and what follows it, trimmed.
std::pair<std::string, std::string> SplitWord(const std::string& text) {
    const std::size_t space = text.find_first_of(" \t");
    if (space == std::string::npos)
        return {text, {}};
    return {text.substr(0, space), Trim(text.substr(space))};
}

ReplayStep ParseLine(int number, const std::string& line) {
    auto [verb, rest] = SplitWord(line);
    for (const StepForm& form : kSteps) {
        if (verb != form.name)
            continue;
        ReplayStep step{number, form.kind, {}, {}};
        switch (form.words) {
        case Words::None:
            if (!rest.empty())
                throw ReplayScriptError(number, verb + " takes nothing after it, not \"" + rest + "\"");
            break;
        case Words::Rest:
            if (rest.empty())
                throw ReplayScriptError(number, verb + " needs what it acts on");
            step.text = rest;
            break;
        case Words::Control:
            if (rest.empty() || rest.find_first_of(" \t") != std::string::npos)
                throw ReplayScriptError(number, verb + " needs one control id");
            step.control = rest;
            break;
        case Words::ControlAndRest: {
            auto [control, value] = SplitWord(rest);
            if (control.empty() || value.empty())
                throw ReplayScriptError(number, verb + " needs a control id and a value");
            step.control = control;
            step.text = value;
            break;
        }
        }
        return step;
    }
    throw ReplayScriptError(number, "unknown step \"" + verb + "\"");
}

} // namespace

std::vector<ReplayStep> ParseReplayScript(const std::string& text) {
    std::vector<ReplayStep> steps;
    std::istringstream lines(text);
    std::string line;
    int number = 0;
    while (std::getline(lines, line)) {
        ++number;
        const std::string trimmed = Trim(line);
        if (trimmed.empty() || trimmed.front() == '#')
            continue;
        steps.push_back(ParseLine(number, trimmed));
    }
    return steps;
}

std::vector<ReplayStep> ReadReplayScript(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw ReplayScriptError(0, "cannot read the replay " + path);
    std::ostringstream text;
    text << file.rdbuf();
    return ParseReplayScript(text.str());
}

const char* StepName(StepKind kind) {
    for (const StepForm& form : kSteps)
        if (form.kind == kind)
            return form.name;
    return "?";
}

} // namespace igd::dialog
