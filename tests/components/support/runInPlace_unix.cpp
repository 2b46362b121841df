// SPDX-License-Identifier: MIT
#include "runInPlace.h"

#include <QFile>

#include <vector>

#include <unistd.h>

int runInPlace(const QString& program, const QStringList& arguments)
{
    constexpr int noProgram = 127;
    std::vector<QByteArray> words = {QFile::encodeName(program)};
    for (const QString& argument : arguments) {
        words.push_back(QFile::encodeName(argument));
    }
    std::vector<char*> pointers;
    for (QByteArray& word : words) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    ::execvp(pointers.front(), pointers.data());
    return noProgram;
}
