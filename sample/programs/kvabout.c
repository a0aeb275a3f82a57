#include "page.h"

int main(void)
{
    return answerPage("kvabout",
                      "Tells the product's version and its makers.");
}
