#include "page.h"

int main(void)
{
    return answerPage("kvcfg",
                      "Lets an administrator change accounts, roots and permissions.");
}
