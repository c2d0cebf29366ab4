// The product's home page.
#pragma once

// Opens the home page in the user's browser; a failure is not reported.
void OpenHomePage();
