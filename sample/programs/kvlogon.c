#include "page.h"

int main(void)
{
    return answerPage("kvlogon",
                      "Asks for the user's name and password and checks them.");
}
