// The command VxConfig: the dialog for all values of VxConfig.ini.
#pragma once

// Opens the dialog; its button `save` writes what it shows, and nothing else does.
void VxConfig();
