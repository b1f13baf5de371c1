#pragma once

class IScriptTexts;

// The program's own templates and catalogues: on Windows out of this executable's resources, natively out of
// the files that those are made of.
const IScriptTexts& ScriptLibrary();
