// SPDX-License-Identifier: MIT
// Plays every child process of the tests. Its arguments are commands, done one after another.
// Where the first argument is the name of a file that ends in ".commands", they are read from that
// file, a word a line, and the other arguments are ignored. Where a file of its own name with
// ".commands" added stands beside it, it plays a program of an installation: the commands are in
// that file, and the arguments are what they speak of.
//
//   out TEXT, err TEXT        writes TEXT, with \n \r \t \0 \\ and \xHH decoded, and flushes
//   lines COUNT WIDTH         COUNT numbered lines of WIDTH bytes, line end included,
//   error-lines COUNT WIDTH   ... to standard error,
//   both-lines COUNT WIDTH    ... to both channels, each line on either
//   flood COUNT WIDTH         COUNT lines of WIDTH bytes, line end included, as fast as can be
//   solver-lines COUNT        COUNT lines of a solver, as fast as can be: of each 200 one warning
//                             that is numbered, 39 notices that are not, and 160 plain lines
//   warnings COUNT DIFFERENT  COUNT numbered warnings with DIFFERENT texts, as fast as can be
//   long-line BYTES           one line of BYTES bytes and a line end
//   arguments ...             writes the arguments that follow, in hex, one a line, and ends
//   variable NAME             writes the environment variable, or "unset"
//   directory                 writes the working directory
//   absolute NAME             writes the absolute path of the file NAME
//   sleep MILLISECONDS
//   ignore-terminate          from now on
//   wait-for-file NAME        until there is such a file
//   read-input                standard input to its end, and writes how many bytes there were
//   touch NAME                makes an empty file
//   write NAME TEXT           makes the file NAME with TEXT, decoded
//   copy FROM TO              makes the file TO as FROM is
//   make-directory NAME
//   remove NAME               removes the file NAME
//   leave-grandchild TEXT NAME
//                             a process of its own that waits for the file NAME, writes TEXT on the
//                             same channels, and removes the file
//   crash                     dies by a signal
//   signal NUMBER             dies by that signal
//   exit CODE                 the end of the commands means exit 0
//
// Those of a program of an installation:
//
//   call                      writes its arguments in one line
//   model                     writes its first argument, and what stands in the file of that name
//   machines                  writes what stands in the machines file that it was given, if any
//   obey                      does the commands in the file that its first argument names
//   tell TEXT                 adds a line to its file NAME.told, with TEXT
//   tell-directory            ... with the working directory
//   tell-arguments            ... with an argument in angle brackets, for each
//   tell-variable NAME        ... with the environment variable, or "unset"
//   told                      makes that file appear
#include "OwnCall.h"
#include "ToldFile.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <string>
#include <thread>
#include <vector>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <windows.h>
#else
#include <unistd.h>
#endif

namespace {

using Arguments = std::vector<std::string>;

void sleepFor(const std::string& milliseconds)
{
    std::this_thread::sleep_for(std::chrono::milliseconds(std::stol(milliseconds)));
}

char decodedEscape(const std::string& text, std::size_t& position)
{
    const char code = text.at(position++);
    switch (code) {
    case 'n':
        return '\n';
    case 'r':
        return '\r';
    case 't':
        return '\t';
    case '0':
        return '\0';
    case 'x':
        position += 2;
        return static_cast<char>(std::stoi(text.substr(position - 2, 2), nullptr, 16));
    default:
        return code;
    }
}

std::string decoded(const std::string& text)
{
    std::string result;
    for (std::size_t position = 0; position < text.size();) {
        const char character = text[position++];
        result += character == '\\' ? decodedEscape(text, position) : character;
    }
    return result;
}

void write(std::FILE* stream, const std::string& text)
{
    std::fwrite(text.data(), 1, text.size(), stream);
    std::fflush(stream);
}

std::string numberedLine(long number, std::size_t width)
{
    std::string line = std::to_string(number);
    line.resize(width - 1, '.');
    return line + '\n';
}

void writeLines(const Arguments& arguments, const std::vector<std::FILE*>& streams)
{
    const long count = std::stol(arguments[0]);
    const std::size_t width = std::stoul(arguments[1]);
    for (long number = 0; number < count; ++number) {
        const std::string line = numberedLine(number, width);
        for (std::FILE* stream : streams) {
            std::fwrite(line.data(), 1, line.size(), stream);
        }
    }
    std::fflush(nullptr);
}

void writeFlood(const Arguments& arguments)
{
    constexpr long linesInBlock = 4096;
    const std::string line = std::string(std::stoul(arguments[1]) - 1, 'x') + '\n';
    std::string block;
    for (long number = 0; number < linesInBlock; ++number) {
        block += line;
    }
    for (long left = std::stol(arguments[0]); left > 0; left -= linesInBlock) {
        const auto lines = static_cast<std::size_t>(std::min(left, linesInBlock));
        std::fwrite(block.data(), line.size(), lines, stdout);
    }
    std::fflush(stdout);
}

std::string solverLine(long number)
{
    const std::string text = std::to_string(number) + " of the elements: residue 1.25e-3";
    if (number % 200 == 0) {
        return "-*-warning-*-WARNING " + std::to_string(number % 7000) + ": segment " + text + '\n';
    }
    return (number % 5 == 0 ? "-*-notice-*-Now at step " : "Solving for the current on ") + text +
           '\n';
}

void writeSolverLines(const std::string& count)
{
    for (long number = 0; number < std::stol(count); ++number) {
        const std::string line = solverLine(number);
        std::fwrite(line.data(), 1, line.size(), stdout);
    }
    std::fflush(stdout);
}

void writeWarnings(const Arguments& arguments)
{
    const long different = std::stol(arguments[1]);
    for (long number = 0; number < std::stol(arguments[0]); ++number) {
        const std::string text = std::to_string(number % different);
        std::printf("-*-warning-*-WARNING %s: segment %s is too short for its radius\n",
                    text.c_str(), text.c_str());
    }
    std::fflush(stdout);
}

void writeLongLine(const std::string& bytes)
{
    write(stdout, std::string(std::stoul(bytes), 'x') + '\n');
}

std::string variable(const std::string& name)
{
    const char* const value = std::getenv(name.c_str());
    return value ? value : "unset";
}

std::string contentOf(const std::string& file)
{
    std::ifstream stream(std::filesystem::u8path(file), std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void writeFile(const std::string& name, const std::string& text)
{
    std::ofstream(std::filesystem::u8path(name), std::ios::binary) << text;
}

std::string absolute(const std::string& name)
{
    return std::filesystem::absolute(std::filesystem::u8path(name)).u8string();
}

void writeModel()
{
    const std::string& model = OwnCall::arguments().at(0);
    write(stdout, model + '\n' + contentOf(model));
}

void waitForFile(const std::string& name)
{
    while (!std::filesystem::exists(name)) {
        sleepFor("1");
    }
}

void readInput()
{
    long bytes = 0;
    while (std::getchar() != EOF) {
        ++bytes;
    }
    write(stdout, "input: " + std::to_string(bytes) + '\n');
}

void leaveGrandchild(const std::string& text, const std::string& file)
{
#ifndef _WIN32
    const pid_t child = fork();
    if (child < 0) {
        std::perror("kest_test_child");
        std::_Exit(EXIT_FAILURE);
    }
    if (child == 0) {
        std::signal(SIGPIPE, SIG_IGN); // nobody may read any more
        waitForFile(file);
        write(stdout, decoded(text));
        std::filesystem::remove(file);
        std::_Exit(0);
    }
#else
    constexpr int longest = 1024;
    wchar_t self[longest] = L"";
    GetModuleFileNameW(nullptr, self, longest);
    const auto quoted = [](const std::string& word) {
        return L" \"" + std::filesystem::u8path(word).wstring() + L'"';
    };
    // It inherits the channels.
    std::wstring line = L'"' + std::wstring(self) + L"\" wait-for-file" + quoted(file) + L" out" +
                        quoted(text) + L" remove" + quoted(file);
    STARTUPINFOW start = {};
    start.cb = sizeof start;
    PROCESS_INFORMATION grandchild = {};
    if (!CreateProcessW(self, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start,
                        &grandchild)) {
        std::_Exit(EXIT_FAILURE);
    }
    CloseHandle(grandchild.hProcess);
    CloseHandle(grandchild.hThread);
#endif
}

void obey(const std::string& file);

struct Command
{
    std::size_t argumentCount;
    std::function<void(const Arguments&)> run;
};

const std::map<std::string, Command>& commands()
{
    // clang-format off
    static const std::map<std::string, Command> table = {
        {"out",              {1, [](const Arguments& a) { write(stdout, decoded(a[0])); }}},
        {"err",              {1, [](const Arguments& a) { write(stderr, decoded(a[0])); }}},
        {"lines",            {2, [](const Arguments& a) { writeLines(a, {stdout}); }}},
        {"error-lines",      {2, [](const Arguments& a) { writeLines(a, {stderr}); }}},
        {"both-lines",       {2, [](const Arguments& a) { writeLines(a, {stdout, stderr}); }}},
        {"flood",            {2, [](const Arguments& a) { writeFlood(a); }}},
        {"solver-lines",     {1, [](const Arguments& a) { writeSolverLines(a[0]); }}},
        {"warnings",         {2, [](const Arguments& a) { writeWarnings(a); }}},
        {"long-line",        {1, [](const Arguments& a) { writeLongLine(a[0]); }}},
        {"variable",         {1, [](const Arguments& a) { write(stdout, variable(a[0]) + '\n'); }}},
        {"directory",        {0, [](const Arguments&)   { write(stdout, std::filesystem::current_path().string() + '\n'); }}},
        {"absolute",         {1, [](const Arguments& a) { write(stdout, absolute(a[0]) + '\n'); }}},
        {"sleep",            {1, [](const Arguments& a) { sleepFor(a[0]); }}},
        {"ignore-terminate", {0, [](const Arguments&)   { std::signal(SIGTERM, SIG_IGN); }}},
        {"wait-for-file",    {1, [](const Arguments& a) { waitForFile(a[0]); }}},
        {"read-input",       {0, [](const Arguments&)   { readInput(); }}},
        {"touch",            {1, [](const Arguments& a) { std::ofstream(a[0]).flush(); }}},
        {"write",            {2, [](const Arguments& a) { writeFile(a[0], decoded(a[1])); }}},
        {"copy",             {2, [](const Arguments& a) { std::filesystem::copy_file(std::filesystem::u8path(a[0]), std::filesystem::u8path(a[1])); }}},
        {"make-directory",   {1, [](const Arguments& a) { std::filesystem::create_directory(a[0]); }}},
        {"remove",           {1, [](const Arguments& a) { std::filesystem::remove(std::filesystem::u8path(a[0])); }}},
        {"leave-grandchild", {2, [](const Arguments& a) { leaveGrandchild(a[0], a[1]); }}},
        {"crash",            {0, [](const Arguments&)   { std::abort(); }}},
        {"signal",           {1, [](const Arguments& a) { std::raise(std::stoi(a[0])); }}},
        {"exit",             {1, [](const Arguments& a) { std::exit(std::stoi(a[0])); }}},
        {"call",             {0, [](const Arguments&)   { write(stdout, OwnCall::inOneLine() + '\n'); }}},
        {"model",            {0, [](const Arguments&)   { writeModel(); }}},
        {"machines",         {0, [](const Arguments&)   { write(stdout, contentOf(OwnCall::argumentAfter("--machines-file"))); }}},
        {"obey",             {0, [](const Arguments&)   { obey(OwnCall::arguments().at(0)); }}},
        {"tell",             {1, [](const Arguments& a) { ToldFile::add(a[0]); }}},
        {"tell-directory",   {0, [](const Arguments&)   { ToldFile::add(std::filesystem::current_path().generic_u8string()); }}},
        {"tell-arguments",   {0, [](const Arguments&)   { ToldFile::addArguments(); }}},
        {"tell-variable",    {1, [](const Arguments& a) { ToldFile::add(variable(a[0])); }}},
        {"told",             {0, [](const Arguments&)   { ToldFile::publish(); }}},
    };
    // clang-format on
    return table;
}

std::string hexadecimal(const std::string& text)
{
    static const char* const digits = "0123456789abcdef";
    std::string result;
    for (const unsigned char character : text) {
        result += digits[character >> 4];
        result += digits[character & 15];
    }
    return result;
}

void writeArguments(Arguments::const_iterator argument, Arguments::const_iterator end)
{
    for (; argument != end; ++argument) {
        std::printf("%s\n", hexadecimal(*argument).c_str());
    }
}

Arguments commandsIn(const std::filesystem::path& file)
{
    Arguments words;
    std::ifstream stream(file);
    for (std::string word; std::getline(stream, word);) {
        words.push_back(word);
    }
    return words;
}

Arguments ownCommands()
{
    const std::filesystem::path beside = OwnCall::fileBeside(".commands");
    if (std::filesystem::exists(beside)) {
        return commandsIn(beside);
    }
    const Arguments& arguments = OwnCall::arguments();
    const std::filesystem::path file = arguments.empty() ? std::string() : arguments.front();
    return file.extension() == ".commands" ? commandsIn(file) : arguments;
}

void doAll(const Arguments& words)
{
    for (auto word = words.cbegin(); word != words.cend();) {
        const std::string name = *word++;
        if (name == "arguments") {
            writeArguments(word, words.cend());
            return;
        }
        const auto command = commands().find(name);
        const std::size_t left = static_cast<std::size_t>(words.cend() - word);
        if (command == commands().cend() || left < command->second.argumentCount) {
            std::fprintf(stderr, "kest_test_child: cannot do %s\n", name.c_str());
            std::exit(99);
        }
        const auto next = word + static_cast<long>(command->second.argumentCount);
        command->second.run(Arguments(word, next));
        word = next;
    }
}

void obey(const std::string& file)
{
    doAll(commandsIn(std::filesystem::u8path(file)));
}

} // namespace

int main(int argc, char* argv[])
{
    OwnCall::remember(argc, argv);
#ifdef _WIN32 // the bytes of the commands, and no other line ends
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
#endif
    doAll(ownCommands());
    return 0;
}
