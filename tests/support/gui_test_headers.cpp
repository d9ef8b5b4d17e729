// Nothing but the large headers, parsed once for all tests of forms.
