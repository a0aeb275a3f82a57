#include "page.h"

int main(void)
{
    return answerPage("kvfile",
                      "Downloads, uploads, moves and deletes files.");
}
