#include "page.h"

int main(void)
{
    return answerPage("kvimg",
                      "Shows the pictures of a folder one after another.");
}
