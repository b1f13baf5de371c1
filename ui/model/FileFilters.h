#pragma once

// The filters of the file dialogs: pairs of a description and its patterns, each part followed by a bar, the
// last one by two. The default extensions, without a dot, are appended to a name that is typed without one.

inline constexpr const wchar_t* kProjectExtension = L"scvpr";
inline constexpr const wchar_t* kProjectFilter = L"SCV, OSL Project(*.scvpr; *.oslpr)|*.scvpr;*.oslpr||";
// Room for the names of a long multiple selection, in UTF-16 units.
inline constexpr int kProjectNamesLength = 262144;

inline constexpr const wchar_t* kProgramExtension = L"exe";
inline constexpr const wchar_t* kProgramFilter = L"Scrivane.exe|Scrivane.exe||";

inline constexpr const wchar_t* kScriptExtension = L"js";
inline constexpr const wchar_t* kScriptFilter =
    L"JScript Files (*.js)|*.js|VBScript Files (*.vbs)|*.vbs|All Files (*.*)|*.*||";

inline constexpr const wchar_t* kExportFilter =
    L"Excel CSV Files (*.csv)|*.csv|Text Files (*.txt)|*.txt|Web Files (*.htm;*.html)|*.htm;*.html|"
    L"SQL Scripts (*.sql;*.tsq;*.ssq)|*.sql;*.tsq;*.ssq|"
    L"PHP Files (*.php;*.php3;*.php4;*.tpl)|*.php;*.php3;*.php4;*.tpl|"
    L"Microsoft Access (*.mdb;*.adp;*.mda;*.mde;*.ade)|*.mdb;*.adp;*.mda;*.mde;*.ade|"
    L"XML Files (*.xml)|*.xml|All Files (*.*)|*.*||";
inline constexpr const wchar_t* kFailedUrlsFilter =
    L"Web Files (*.htm;*.html)|*.htm;*.html|Text Files (*.txt;*.csv)|*.txt;*.csv||";
inline constexpr const wchar_t* kInputFilter =
    L"Excel CSV Files (*.csv)|*.csv|Text Files (*.txt)|*.txt|All Files (*.*)|*.*||";
