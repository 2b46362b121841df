// SPDX-License-Identifier: MIT
// Plays ssh. Appends its arguments to the file "log" in the folder KEST_FAKE_SSH, a line a call
// with blanks as "|", and does for the host what the file named after it there says:
//
//   answer TEXT   writes TEXT and ends
//   greet TEXT    writes a line of greeting before it
//   refuse TEXT   writes TEXT to standard error and ends as ssh does that reaches nobody
//   silent        ends with exit code 0 without a word
//   fail          ends with exit code 7 without a word
//   flood         writes without end
//   crash         dies by a signal
//   hang          waits, and so does a child of its own
//   slow TEXT     writes TEXT after half a second
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include <unistd.h>

int main(int argc, char* argv[])
{
    const std::string folder = std::getenv("KEST_FAKE_SSH");
    std::string call;
    std::string host;
    for (int i = 1; i < argc; ++i) {
        call += (i > 1 ? "|" : "") + std::string(argv[i]);
        if (i > 1 && host.empty() && std::string(argv[i - 1]) == "--") {
            host = argv[i];
        }
    }
    std::ofstream(folder + "/log", std::ios::app) << call + '\n';

    std::ifstream file(folder + '/' + host);
    std::string word;
    std::string text;
    file >> word;
    std::getline(file >> std::ws, text);
    if (word == "greet") {
        std::puts("Welcome to 3 machines");
    }
    if (word == "answer" || word == "greet" || word == "slow") {
        usleep(word == "slow" ? 500000 : 0);
        std::printf("%s\n", text.c_str());
    } else if (word == "refuse") {
        std::fprintf(stderr, "Warning: something\n%s\n", text.c_str());
        return 255;
    } else if (word == "fail") {
        return 7;
    } else if (word == "crash") {
        std::raise(SIGKILL);
    }
    while (word == "flood") {
        std::puts("flood");
    }
    if (word == "hang") {
        if (fork() < 0) {
            std::perror("fork");
            return EXIT_FAILURE;
        }
        std::signal(SIGTERM, SIG_IGN);
        for (;;) {
            pause();
        }
    }
    return 0;
}
