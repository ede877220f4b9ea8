#include "tests/config/command_lines/photo_with_orva.hpp"

#include <iostream>

int main(int argc, char** argv) { return photo::run(argc, argv, std::cout, std::cerr); }
