#include "imaging/LibraryThreads.h"

#include <opencv2/core/utility.hpp>

void forbidLibraryThreads()
{
    cv::setNumThreads(1);
}
