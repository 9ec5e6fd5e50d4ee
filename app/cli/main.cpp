#include <iostream>
#include <string>
#include <vector>

#include "Command.h"
#include "datafile/FileGlobals.h"

int main(int argc, char** argv) {
    op_InitFileGlobals();
    std::vector<std::string> args(argv + 1, argv + argc);
    CliIO io{std::cout, std::cerr};
    return cli_Run(args, io);
}
