#include "page.h"

int main(void)
{
    return answerPage("kvclpbd",
                      "Keeps the files that were cut or copied until they are pasted.");
}
