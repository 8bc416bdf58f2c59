#include "Batch.h"

#include <exception>
#include <iostream>

int main(int argc, char **argv)
try {
    return veskora::runBatch({argv + 1, argv + argc}, std::cout, std::cerr);
} catch (const std::exception &error) {
    std::cerr << "Veskora_batch: " << error.what() << "\n";
    return veskora::batchStatus::someFailed;
}
