#pragma once

// Ids of the program's resources, of the main dialog's controls and of its commands. The resource compiler
// reads this file too, so it contains only #defines. OK and Cancel have the system's ids IDOK and IDCANCEL.

// Dialogs and menus
#define IDD_MAIN 102
#define IDR_TRAY_MENU 135

// Icons
#define IDI_PROGRAM 128
#define IDI_RESET_LAST_RUN 133
#define IDI_BROWSE 141
#define IDI_SORT_ASCENDING 142
#define IDI_ADD_PROJECT 143
#define IDI_SORT_DESCENDING 144
#define IDI_RUN 145
#define IDI_DELETE_PROJECT 241

// Commands of the tray menu. The dialog's Exit button sends the second one, too.
#define ID_SHOW_WINDOW 32771
#define ID_EXIT_PROGRAM 32772

// The program to run
#define IDC_PROGRAM_GROUP 1048
#define IDC_PROGRAM_PATH 1047
#define IDC_PROGRAM_BROWSE 1241
#define IDC_PROGRAM_RUN 1049

// The project list and the buttons below it
#define IDC_PROJECT_LIST 1017
#define IDC_ADD_PROJECT 1240
#define IDC_EDIT_PROJECT 1251
#define IDC_DELETE_PROJECT 1026
#define IDC_RUN_PROJECT 1043
#define IDC_RESET_LAST_RUN 1045

// Editor: commands
#define IDC_DELETE_URLS 1012
#define IDC_RESET_URLS 1011
#define IDC_DELETE_RESULTS 1010
#define IDC_START_PROJECT 1014
#define IDC_RESTART_PROJECT 1052
#define IDC_EXPORT_RESULTS 1022
#define IDC_APPLY_FILTER 1016
#define IDC_EXIT_WHEN_FINISHED 1028
#define IDC_EXPORT_TO_NEW_FILE 1019
#define IDC_EXPORT_FILE 1020
#define IDC_EXPORT_FILE_BROWSE 1243
#define IDC_EXPORT_FAILED_URLS 1027
#define IDC_FAILED_URLS_FILE 1021
#define IDC_FAILED_URLS_FILE_BROWSE 1244
#define IDC_ADD_URLS 1013
#define IDC_URLS_FILE 1018
#define IDC_URLS_FILE_BROWSE 1242
#define IDC_GENERATE_URLS 1050
#define IDC_SCRIPT_FILE 1051
#define IDC_SCRIPT_FILE_BROWSE 1247
#define IDC_IMPORT_INPUT_VALUES 1015
#define IDC_INPUT_VALUES_FILE 1023
#define IDC_INPUT_VALUES_FILE_BROWSE 1246
#define IDC_INPUT_ELEMENT_NAME 1024
#define IDC_INPUT_ELEMENT_ID 1025

// Editor: start
#define IDC_START_DATE 1030
#define IDC_START_TIME 1029
#define IDC_SET_CURRENT 1245

// Editor: repeat; the days from Monday to Sunday are consecutive.
#define IDC_REPEAT_MON 1031
#define IDC_REPEAT_TUE 1032
#define IDC_REPEAT_WED 1033
#define IDC_REPEAT_THU 1034
#define IDC_REPEAT_FRI 1035
#define IDC_REPEAT_SAT 1036
#define IDC_REPEAT_SUN 1037
#define IDC_REPEAT_MONTHLY 1053
#define IDC_REPEAT_EVERY 1042
#define IDC_EVERY_VALUE 1039
#define IDC_EVERY_SPIN 1040
#define IDC_EVERY_UNIT 1041
#define IDC_UNTIL_LABEL 1044
#define IDC_UNTIL_TIME 1038

// Start with Windows
#define IDC_RUN_AT_STARTUP 1046
