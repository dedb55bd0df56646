'use strict';

// What may stand in the fields of a camera, and how a page says what may not.
var Address = (function () {
    var Forbidden = '\\/*?|\t\n":<>%'; // in a name
    var Names = { '\t': 'Tab', '\n': 'Line feed' };

    // The four numbers, or null for what is no address.
    function parts(text) {
        var match = /^(\d{1,3})\.(\d{1,3})\.(\d{1,3})\.(\d{1,3})$/.exec(text);
        var numbers = match && match.slice(1).map(Number);
        return numbers && numbers.every(function (number) { return number < 256; }) ?
            numbers : null;
    }

    function value(text) {
        return parts(text).reduce(function (sum, part) { return sum * 256 + part; }, 0);
    }

    return {
        // What is wrong with a name, as a translated text; empty when nothing is.
        nameFault: function (name) {
            if (name.trim() === '')
                return Page.translate('The camera needs a name.');
            var letter = Array.from(name).find(function (each) {
                return Forbidden.indexOf(each) >= 0;
            });
            return letter === undefined ? '' :
                Page.fill('A name cannot hold this character: %1', Names[letter] || letter);
        },
        isAddress: function (text) { return parts(text) !== null; },
        // Ones, then zeros.
        isMask: function (text) {
            return parts(text) !== null && value(text) > 0 &&
                /^1+0*$/.test(value(text).toString(2)) && value(text) >= Math.pow(2, 31);
        },
        // Whether two addresses are of one network.
        isSameNetwork: function (one, other, mask) {
            var masks = parts(mask);
            var others = parts(other);
            return parts(one).every(function (part, i) {
                return (part & masks[i]) === (others[i] & masks[i]);
            });
        },
        // Marks a field as wrong, or takes the mark away.
        mark: function (field, isWrong) {
            field.classList.toggle('wrong', isWrong);
            field.setAttribute('aria-invalid', String(isWrong));
        }
    };
})();
