#include "page.h"

int main(void)
{
    return answerPage("kvhlp",
                      "Shows the help pages in the user's language.");
}
