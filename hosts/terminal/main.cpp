// The program wayfell.
#include "hosts/commandline/Completion.h"
#include "hosts/terminal/Commands.h"

int main(int argc, char** argv) {
  using namespace wayfell;
  Command program = {
      .name = "wayfell",
      .help = "A widget for people outdoors: position, speed, heading, waypoint and track.",
      .commands = {todayCommand(), replayCommand(), settingsCommand(), waypointCommand(),
                   trackCommand(), convertCommand(), distanceCommand(), datumsCommand(),
                   addressesCommand()},
      .optionColumns = 16};
  program.commands.push_back(completionsOptions(program));
  return runProgram(program, "wayfell " WAYFELL_VERSION, argc, argv);
}
