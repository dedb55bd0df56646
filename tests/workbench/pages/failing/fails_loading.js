'use strict';

throw new Error('while it loads');
