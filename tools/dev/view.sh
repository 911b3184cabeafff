# Placeholders until the Lister host lands.

cmd_view() { cmd_build mingw-release; }
cmd_shot() { cmd_build mingw-release; }
cmd_shots() { cmd_build mingw-release; }
