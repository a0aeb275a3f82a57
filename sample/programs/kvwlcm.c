#include "page.h"

int main(void)
{
    return answerPage("kvwlcm",
                      "Greets the user and shows the folders open to the account.");
}
