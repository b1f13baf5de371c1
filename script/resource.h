#pragma once

// Ids of the script editor's dialogs, their controls and its icon. The resource compiler reads this file too,
// so it contains only #defines. OK and Cancel have the system's ids IDOK and IDCANCEL.

#define IDD_SCRIPT 293
#define IDD_SCRIPT_FUNCTION 322
#define IDI_SCRIPT 512

// Script Editor: templates and functions
#define IDC_SCRIPT_LANGUAGE 2113
#define IDC_SCRIPT_TEMPLATES 2103
#define IDC_SCRIPT_NEW_FROM_TEMPLATE 2100
#define IDC_SCRIPT_ADD_TEMPLATE 2119
#define IDC_SCRIPT_FUNCTIONS 2111
#define IDC_SCRIPT_INSERT 2118

// Script Editor: the script
#define IDC_SCRIPT_TEXT 2104
#define IDC_SCRIPT_CARET 2105
#define IDC_SCRIPT_PARSE 2116
#define IDC_SCRIPT_NEW 2102
#define IDC_SCRIPT_LOAD 2117
#define IDC_SCRIPT_SAVE 2115

// Script Editor: the test
#define IDC_SCRIPT_TEST_GROUP 2109
#define IDC_SCRIPT_TEST_TEXT_LABEL 2107
#define IDC_SCRIPT_TEST_TEXT 2110
#define IDC_SCRIPT_TEST_RUN 2114
#define IDC_SCRIPT_TEST_RESULT_LABEL 2108
#define IDC_SCRIPT_TEST_RESULT 2112
#define IDC_SCRIPT_SEPARATOR 2106

// The command of the Enter key in the list of templates. It has no handler.
#define ID_SCRIPT_TEMPLATE_ENTER 2101

// Script Function
#define IDC_FUNCTION_NAME 2131
#define IDC_FUNCTION_DESCRIPTION 2133
#define IDC_FUNCTION_PARAM_1_LABEL 2136
#define IDC_FUNCTION_PARAM_1 2139
#define IDC_FUNCTION_PARAM_2_LABEL 2135
#define IDC_FUNCTION_PARAM_2 2138
#define IDC_FUNCTION_PARAM_3_LABEL 2134
#define IDC_FUNCTION_PARAM_3 2137
#define IDC_FUNCTION_NO_PARAMS 2132
