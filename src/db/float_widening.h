#pragma once

/// The double of the float's shortest decimal text: 161.6F gives 161.6. So values that add up on
/// paper add up here.
double WidenFloat(float value);
