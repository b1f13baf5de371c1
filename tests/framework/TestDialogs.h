#pragma once

// The test program's own resource: a dialog with nothing but two buttons.
#define IDD_TEST 9001
