// Start-up and shutdown of the component, called once each by the host
// application around its use of the component.
#pragma once

class CWinApp;

// Registers the 19 document templates in app (the data group's first, then one
// per row of the command table, Append to Vartest), all with the data group's menu.
void InitOutputProcessor2(CWinApp* app);
// Releases what start-up made: the templates and the parameter dialogs.
void ShutdownOutputProcessor();
