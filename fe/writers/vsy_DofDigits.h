/* vsy_DofDigits: the degree-of-freedom digits of a bit mask, as deck cards write them.
 *
 * Bit d - 1 of `flags` stands for dof d. The n flags are walked from the last to the first and
 * each set one puts its number at the next higher decimal place, so dof 1 ends up in front:
 * a mask of 63 with n 6 gives 123456, a mask of 5 gives 13, no flag gives 0. Flags above 9
 * have no digit and n is taken as at most 32.
 */
#ifndef VSY_DOFDIGITS_H
#define VSY_DOFDIGITS_H

void vsy_DofDigits(int n, int flags, int* digits);

#endif
