#pragma once
// The igd binary of this build, run as a user runs it: with no terminal on standard input, its
// home taken from IGD_HOME (a ScopedIgdHome sets it), its two outputs read apart.
//
//     const Ran ran = igd::test::RunIgd({"presets", "list"});
//     EXPECT_EQ(ran.exitCode, 0) << ran.err;
#include <gtest/gtest.h>
#include <sys/types.h>

#include <cstdio>
#include <string>
#include <vector>

#include "platform/tasks/engine/EngineTestSupport.h"

namespace igd::test {

// A running igd whose standard output a test reads line by line.
class IgdProcess {
public:
    explicit IgdProcess(const std::vector<std::string>& arguments);
    ~IgdProcess();
    IgdProcess(const IgdProcess&) = delete;
    IgdProcess& operator=(const IgdProcess&) = delete;

    // The next line of standard output without its end; false at the end.
    bool ReadLine(std::string& line);
    std::string RestOfOutput();
    std::string ErrorOutput();
    void Signal(int signal);
    // The exit code, or 128 plus the signal that ended it.
    int Wait();

private:
    pid_t pid_ = -1;
    bool reaped_ = false;
    FILE* out_ = nullptr;
    int errFd_ = -1;
};

struct Ran {
    int exitCode;
    std::string out;
    std::string err;
    // Both outputs, for a test that looks for words wherever igd writes them.
    std::string Said() const { return out + err; }
};

// Replaces a forked child with igd and the arguments; never returns.
[[noreturn]] void ExecIgd(const std::vector<std::string>& arguments);

// igd with the arguments, run to its end.
Ran RunIgd(const std::vector<std::string>& arguments);
// What a started igd said, once it has ended.
Ran Finish(IgdProcess& igd);

// Whether a path lies in the ASC MHL history an ingest keeps beside the media it copied, which
// tests that look at the media alone pass over.
bool InHistory(const std::string& path);

// A count from the summary line of `--json` output; "no summary" when there is none.
std::string SummaryNumber(const std::string& out, const std::string& name);

// A home of its own and a tree of files for each test.
class IgdCommandTest : public ::testing::Test {
protected:
    std::string Native(const std::string& relative) const { return tree.NativePath(relative); }

    // A P2 card at SHOOT/CARD01 with clips 0001AB and 0002AB (clip XML, video, audio; icons when
    // asked) and the card's LASTCLIP.TXT.
    void MakeP2Card(bool withIcons) {
        const std::string c = "SHOOT/CARD01/CONTENTS/";
        for (const std::string id : {"0001AB", "0002AB"}) {
            tree.MakeFile(c + "CLIP/" + id + ".XML",
                          "<?xml version=\"1.0\"?><P2Main><ClipContent><GlobalClipID>G" + id +
                              "</GlobalClipID></ClipContent></P2Main>");
            tree.MakeFile(c + "VIDEO/" + id + ".MXF", "video " + id);
            tree.MakeFile(c + "AUDIO/" + id + "00.MXF", "audio " + id);
            if (withIcons)
                tree.MakeFile(c + "ICON/" + id + ".BMP", "icon " + id);
        }
        tree.MakeFile("SHOOT/CARD01/LASTCLIP.TXT", "0002AB");
    }

    ScopedIgdHome home;
    TempTree tree;
};

} // namespace igd::test
