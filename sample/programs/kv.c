#include "page.h"

int main(void)
{
    return answerPage("kv",
                      "Opens a session and leads to the welcome or the logon page.");
}
