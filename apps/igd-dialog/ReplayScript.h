#pragma once
// A replay: what a person does in the host and its dialogs, one step per line, read before any
// of it runs so that a misspelt step fails before the first window opens.
#include <stdexcept>
#include <string>
#include <vector>

namespace igd::dialog {

enum class StepKind {
    Ingest,     // press the host's Ingest button
    Browse,     // open PATH in the media browser of the window in front
    Tick,       // tick a row of the media browser by its name
    Untick,
    Press,      // press the button or checkbox ID
    Set,        // give control ID the value: text, number, popup row text, checkbox on or off
    Type,       // type TEXT into the text edit ID, a key at a time
    Answer,     // press the button of that text in the next message box
    Choose,     // choose PATH in the next file or folder dialog
    Screenshot, // write the window in front to FILE
    Title,      // until the window in front has this title
    WaitBatch,  // until the batch that was started has ended; fails if anything failed
    Dump,       // print the controls of the window in front, for whoever writes a replay
    Quit,
};

struct ReplayStep {
    int line = 0;
    StepKind kind = StepKind::Quit;
    std::string control; // ID or ID@N of Press, Set and Type
    std::string text;    // the rest of the line: a path, a name, a value, a button, a file
};

class ReplayScriptError : public std::runtime_error {
public:
    ReplayScriptError(int line, const std::string& what)
        : std::runtime_error("line " + std::to_string(line) + ": " + what), line_(line) {}
    int Line() const { return line_; }

private:
    int line_;
};

// Blank lines and lines whose first character past the indent is # are skipped. Throws
// ReplayScriptError for an unknown step or missing words.
std::vector<ReplayStep> ParseReplayScript(const std::string& text);
// Throws ReplayScriptError (line 0) when the file cannot be read.
std::vector<ReplayStep> ReadReplayScript(const std::string& path);

const char* StepName(StepKind kind);

} // namespace igd::dialog
