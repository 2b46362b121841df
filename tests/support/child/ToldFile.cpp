// SPDX-License-Identifier: MIT
#include "ToldFile.h"

#include "OwnCall.h"

#include <fstream>

void ToldFile::add(const std::string& line)
{
    std::ofstream(OwnCall::fileBeside(".new"), std::ios::app | std::ios::binary) << line << '\n';
}

void ToldFile::addArguments()
{
    for (const std::string& argument : OwnCall::arguments()) {
        add('<' + argument + '>');
    }
}

void ToldFile::publish()
{
    std::filesystem::rename(OwnCall::fileBeside(".new"), OwnCall::fileBeside(".told"));
}
