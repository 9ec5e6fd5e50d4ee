// Start-up and shutdown of the component, called once each by the host
// application around its use of the component.
#pragma once

class CWinApp;

// Registers the 19 document templates in app (the data group's first, then the
// analyses from Append to Vartest), all with the data group's menu, and
// installs the analyses built into this program.
void InitOutputProcessor2(CWinApp* app);
// Releases what start-up made: the templates and the parameter dialogs.
void ShutdownOutputProcessor();

// Installs the factories of the analyses built into this program (AnalysisWiring.cpp).
void grp_RegisterAnalyses();
