// SPDX-License-Identifier: MIT
// Plays every solver component of an installation. Writes to MODEL.seen, a line each, its
// arguments, then "--" and its environment, and to MODEL.machines what stands in its machines file.
// Then it writes "up" and does what the model's words say:
//
//   valid      reports that all is done and ends
//   fault      ends with exit code 3
//   crash      dies by a signal
//   broken     reports that all is done and dies by a signal
//   silent     ends well and reports nothing
//   files      reports some files, one of them twice, and that all is done
//   steady     reports a hundredth of the work after the other, for six seconds, and ends
//   paused     reports half of it in the same way, and then waits to be terminated
//   errs MESSAGE  reports that error, and ends with exit code 3
//   wait       waits to be terminated
//   halfway    reports that half is done, and waits to be terminated
//   beyond     reports half, then more than all, and waits to be terminated
//   tidy       waits to be terminated, and then ends with the exit code that shells give
//   stubborn   waits with a child of its own, which both ignore the terminate request
//   forgetful  waits to be terminated, and leaves a child of its own that ignores the request
//   orphaning  when it is terminated, starts a child in a session of its own that stays, and ends
//   clearing   the same, but the child makes MODEL.tidied after a third of a second, and ends
//   input      reads its standard input to the end, and then reports that all is done
//   ends PERCENTAGE CODE      reports that, and ends with the exit code
//   dies PERCENTAGE SIGNAL    reports that, and dies by the signal
//   asked-ends, asked-dies    the same, but waits to be terminated first
#include "FakeProcess.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <string>
#include <vector>

#include <unistd.h>

namespace {

void writeSeen(const std::vector<std::string>& arguments)
{
    std::ofstream seen(arguments.front() + ".seen", std::ios::app);
    for (const std::string& argument : arguments) {
        seen << argument << '\n';
    }
    seen << "--\n";
    for (char** variable = environ; *variable; ++variable) {
        seen << *variable << '\n';
    }
    for (std::size_t i = 0; i + 1 < arguments.size(); ++i) {
        if (arguments[i] == "--machines-file") {
            const std::ifstream machines(arguments[i + 1]);
            if (machines) {
                std::ofstream(arguments.front() + ".machines") << machines.rdbuf();
            }
        }
    }
}

void say(const char* line)
{
    std::printf("%s\n", line);
    std::fflush(stdout);
}

void wait(bool withChild, bool ignoring)
{
    if (withChild) {
        FakeProcess::startStubbornChild();
    }
    if (ignoring) {
        std::signal(FakeProcess::stopSignal, SIG_IGN);
    }
    say("up");
    FakeProcess::waitForEver();
}

const char* tidiedFile = nullptr; // none for a child that stays

void leaveAChild(int /*signal*/)
{
    FakeProcess::startDetachedChild(tidiedFile);
    std::_Exit(0);
}

void waitToLeaveAChild(const char* file)
{
    tidiedFile = file;
    std::signal(FakeProcess::stopSignal, leaveAChild);
    wait(false, false);
}

void beTidy()
{
    std::signal(FakeProcess::stopSignal, [](int /*signal*/) { std::_Exit(128 + SIGTERM); });
    wait(false, false);
}

std::ifstream& model()
{
    static std::ifstream file;
    return file;
}

// What else the model says.
int nextNumber()
{
    int number = 0;
    model() >> number;
    return number;
}

void report(int percentage)
{
    std::printf("-*-total-percentage-*-%d%%\n", percentage);
    std::fflush(stdout);
}

void endAsToldByTheModel()
{
    say("up");
    report(nextNumber());
    std::exit(nextNumber());
}

void dieAsToldByTheModel()
{
    say("up");
    report(nextNumber());
    FakeProcess::die(nextNumber());
}

void readInput()
{
    say("up");
    while (std::getchar() != EOF) {
    }
    report(100);
}

void beValid()
{
    say("up");
    say("-*-total-percentage-*-100%");
}

void reportSteadily(int last)
{
    say("up");
    for (int percentage = 1; percentage <= last; ++percentage) {
        FakeProcess::sleepFor(60);
        report(percentage);
    }
}

void reportError()
{
    std::string message;
    std::getline(model() >> std::ws, message);
    std::printf("-*-error-*-%s\n", message.c_str());
    std::exit(3);
}

void reportFiles()
{
    for (const char* const line : {"-*-file-*-b.csv", "-*-file-*-a.csv", "-*-file-*-b.csv"}) {
        say(line);
    }
    beValid();
}

} // namespace

int main(int argc, char* argv[])
{
    const std::map<std::string, void (*)()> behaviours = {
        {"valid", beValid},
        {"fault", [] { say("up"), std::exit(3); }},
        {"crash", [] { say("up"), FakeProcess::die(9); }},
        {"broken", [] { beValid(), FakeProcess::die(9); }},
        {"silent", [] { say("up"); }},
        {"files", reportFiles},
        {"steady", [] { reportSteadily(100); }},
        {"paused", [] { reportSteadily(50), FakeProcess::waitForEver(); }},
        {"wait", [] { wait(false, false); }},
        {"halfway", [] { say("-*-total-percentage-*-50%"), wait(false, false); }},
        {"beyond", [] { report(50), report(250), wait(false, false); }},
        {"errs", reportError},
        {"tidy", beTidy},
        {"stubborn", [] { wait(true, true); }},
        {"forgetful", [] { wait(true, false); }},
        {"orphaning", [] { waitToLeaveAChild(nullptr); }},
        {"clearing", [] { waitToLeaveAChild("m.nec.tidied"); }},
        {"input", readInput},
        {"ends", endAsToldByTheModel},
        {"dies", dieAsToldByTheModel},
        {"asked-ends", [] { FakeProcess::waitForStop(), endAsToldByTheModel(); }},
        {"asked-dies", [] { FakeProcess::waitForStop(), dieAsToldByTheModel(); }},
    };
    FakeProcess::playChild(argc, argv);
    writeSeen(std::vector<std::string>(argv + 1, argv + argc));
    std::string word;
    model().open(argv[1]);
    model() >> word;
    behaviours.at(word)();
    return 0;
}
