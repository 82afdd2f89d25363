STEPS = ()
