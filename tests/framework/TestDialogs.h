#pragma once

// The test program's own resources: dialogs with nothing but two buttons.
#define IDD_TEST 9001
#define IDD_LARGE 9002
