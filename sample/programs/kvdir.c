#include "page.h"

int main(void)
{
    return answerPage("kvdir",
                      "Lists a folder and makes, renames and removes folders.");
}
