#include "program/Program.h"

int main(int argc, char** argv) {
  return playground::RunProgram(argc, argv);
}
